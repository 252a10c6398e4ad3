#pragma once

#include <QLabel>

namespace orlo
{

/// One of the two lights of the line: glyph and word. It counts as lit while it is visible.
class LineLamp : public QLabel
{
    Q_OBJECT
    /// "ok" for the light of the open line, anything else for that of the closed one.
    Q_PROPERTY(QString genere MEMBER kind_)

public:
    explicit LineLamp(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString kind_;
};

/// The place that the two lights share; while neither is lit it says so.
class LineLamps : public QWidget
{
    Q_OBJECT

public:
    explicit LineLamps(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace orlo
