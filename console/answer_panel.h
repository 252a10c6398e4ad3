#pragma once

#include "registry/widgets/text_panel.h"

class QPlainTextEdit;

namespace orlo
{

/// A label whose text can be selected, scrolled and copied. It is broken wherever the line is full,
/// so that no answer widens the window, whatever its length.
class AnswerPanel : public TextPanel
{
    Q_OBJECT

public:
    explicit AnswerPanel(QWidget* parent = nullptr);

    /// The view, which has the focus, has the name too.
    void setAccessibleName(const QString& name);

    /// Selects the whole text and copies it.
    void CopyAll();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* const view_;
};

}  // namespace orlo
