// The list of the monitor with 10,000 punches: how long it takes to fill it ten by ten, as a
// reading does, to scroll through it page by page, and to filter it.

#include "acquisition/punch_list.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>

namespace
{

using namespace orlo;

constexpr int kPunches = 10'000;
constexpr int kPunchesInBlock = 10;

double Milliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

MonitorPunch Punch(int number)
{
    MonitorPunch punch;
    punch.number = number;
    punch.badge = std::to_string(100'000 + number % 500);
    punch.date = "15/03/2006";
    punch.time = "08:30";
    punch.type = "Entrata";
    punch.cause = "0001";
    punch.state = number % 2 == 0 ? kSerialStates[0] : kSerialStates[1];
    punch.to_acquire = number % 2 == 0;
    return punch;
}

void Fill(PunchList& list)
{
    QElapsedTimer whole;
    whole.start();
    double longest = 0;
    for (int number = 1; number <= kPunches; number += kPunchesInBlock) {
        QElapsedTimer block;
        block.start();
        std::vector<MonitorPunch> punches;
        for (int i = 0; i < kPunchesInBlock; ++i) punches.push_back(Punch(number + i));
        list.Add(punches);
        QApplication::processEvents();
        longest = std::max(longest, Milliseconds(block));
    }
    std::printf("filling:   %7.0f ms in all, %5.1f ms the longest block with its repaint\n",
                Milliseconds(whole), longest);
}

void Scroll(PunchList& list)
{
    QScrollBar& bar = *list.verticalScrollBar();
    double longest = 0;
    int pages = 0;
    for (; bar.value() < bar.maximum(); ++pages) {
        QElapsedTimer page;
        page.start();
        bar.setValue(bar.value() + bar.pageStep());
        list.viewport()->repaint();
        longest = std::max(longest, Milliseconds(page));
    }
    std::printf("scrolling: %7d pages, %5.1f ms the longest\n", pages, longest);
}

void Filter(PunchList& list, const char* name, const MonitorFilter& filter)
{
    QElapsedTimer timer;
    timer.start();
    list.SetFilter(filter);
    QApplication::processEvents();
    list.viewport()->repaint();
    std::printf("filter:    %7.1f ms for %d lines by %s\n", Milliseconds(timer), list.LinesSeen(),
                name);
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QWidget window;
    PunchList list(&window);
    window.resize(720, 520);
    list.resize(700, 400);
    window.show();
    Fill(list);
    Scroll(list);
    Filter(list, "badge", {QStringLiteral("100237"), {}});
    Filter(list, "state", {{}, QStringLiteral("Acquisita")});
    Filter(list, "nothing", {});
    return 0;
}
