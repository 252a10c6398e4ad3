#pragma once

#include <QListWidget>

namespace orlo
{

class RegisterDelegate;

/// The register: an item per line, whose text is the line as given. Exactly one LineChosen comes
/// from each choice, by pointer, by key or by program, also of the line that is current already.
class RegisterList : public QListWidget
{
    Q_OBJECT

public:
    explicit RegisterList(QWidget* parent = nullptr);

    void AddLine(const QString& line);
    /// Chooses a line by its position; nothing when there is no such line.
    void Choose(int position);
    /// Takes the current line away, adds `line` at the end and chooses the old position again. The
    /// view's own idea of the next current line is not heard.
    void MoveCurrentToEnd(const QString& line);

    /// The current line, or an empty text.
    QString CurrentLine() const;

    /// The look while a command runs.
    void SetMuted(bool muted);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void LineChosen();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    class Header;

    void ArrangeHeader();
    void PaintEmptyRegister();

    RegisterDelegate* delegate_;
    Header* header_;
};

}  // namespace orlo
