#pragma once

#include <QLabel>
#include <QListWidget>

namespace orlo
{

/// The bell list: an item a line, whose text is the line as given, painted in columns.
class RingList : public QListWidget
{
    Q_OBJECT

public:
    explicit RingList(QWidget* parent = nullptr);

    void SetLines(const QStringList& lines);
    void SetLine(int row, const QString& line);
    QStringList Lines() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    /// Shows whole lines only; what is left of the height stays empty.
    void resizeEvent(QResizeEvent* event) override;
};

/// The heading of the list, whose words are painted over the list's columns.
class RingHeading : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace orlo
