#pragma once

#include <QComboBox>

namespace orlo
{

/// A choice box whose value can only come from its list. When it is editable, as the boxes are that
/// may show a stored value outside the list, a typed key is discarded and empties the text. Arrows,
/// F4 and the list work as usual; the wheel changes nothing without the focus.
class ChoiceBox : public QComboBox
{
    Q_OBJECT

public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    /// Shows a text, of the list or, in an editable box, any other; the empty text shows nothing.
    void Show(const QString& text);

    /// The width is that of `sample` and the arrow.
    void SetRoom(const QString& sample);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The operator went to another control of the window; opening the list or
    /// another window is not leaving.
    void Left();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString sample_;
};

}  // namespace orlo
