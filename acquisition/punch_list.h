#pragma once

#include "acquisition/monitor_filter.h"

#include <QListWidget>

namespace orlo
{

/// The punches of the monitor, a line each, in the fixed font. A punch still to be acquired has a
/// dot and the full colour of the text, the others the secondary colour. The filter hides lines and
/// changes none. Selected lines can be copied.
class PunchList : public QListWidget
{
    Q_OBJECT

public:
    explicit PunchList(QWidget* parent = nullptr);

    /// They are seen with the next repaint.
    void Add(const std::vector<MonitorPunch>& punches);
    void Empty();
    /// From now on only these lines are seen, of those to come too.
    void SetFilter(const MonitorFilter& filter);
    bool IsFiltered() const { return !filter_.IsEmpty(); }
    int LinesSeen() const { return seen_; }

    /// Copies the lines selected and seen in their order, a newline between them; without any, all
    /// that are seen.
    void CopySelectedOrAll() const;

    /// Where the text of a line begins, from the left edge of this widget, frame included.
    int TextLeft() const;
    /// The width at which the longest usual line is seen whole.
    int WidthOfLines() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Line;
    class Delegate;

    enum class Lines { Seen, Selected };

    QString Text(Lines which) const;
    void Copy() const;
    void LayOut();
    void AddActions();
    Line* LineAt(int row) const;

    MonitorFilter filter_;
    int seen_ = 0;
};

}  // namespace orlo
