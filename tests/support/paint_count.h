#pragma once

#include <QEvent>
#include <QWidget>

#include <functional>
#include <utility>

namespace orlo::testing
{

/// How often a control is painted in a certain state: what the operator has had before his eyes.
class PaintCount : public QObject
{
public:
    PaintCount(QWidget& control, std::function<bool()> state) : state_(std::move(state))
    {
        control.installEventFilter(this);
    }
    int times = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && state_()) ++times;
        return false;
    }

private:
    std::function<bool()> state_;
};

}  // namespace orlo::testing
