#pragma once

#include <QScrollArea>

namespace orlo
{

/// The part of a window that gives way to a small screen: a page, laid out above the rows that must
/// stay in sight. Where the screen has room for all of the window it is the page and nothing else,
/// with the page's own sizes; elsewhere it asks for what those rows leave of the screen, scrolls,
/// and brings into sight what gets the keyboard focus.
class ScrollingPage : public QScrollArea
{
    Q_OBJECT

public:
    explicit ScrollingPage(QWidget* parent = nullptr);

    /// What the screen has left beside the margins of the window and the rows under the page.
    QSize Room() const;

    /// To be called before the window is shown: its sizes may have changed while it was hidden, and
    /// the screen may be another one.
    void TakeSizes();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void LetPageGiveWay();
    void BringIntoSight(const QWidget& control);
};

}  // namespace orlo
