// How long the panel takes to open, to scroll and to move its selection: CPU time of this process, on the
// fakes of the seam. `QT_QPA_PLATFORM` decides where the windows are.

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include "Support/PanelDesktop.h"

namespace tessel::test {

namespace {

double processorMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

void report(const char* what, std::vector<double> samples)
{
    std::sort(samples.begin(), samples.end());
    std::printf("%-44s median %6.2f ms   worst %6.2f ms   (%zu times)\n", what, samples[samples.size() / 2],
                samples.back(), samples.size());
}

void measure(const char* what, int times, const std::function<void()>& prepare,
             const std::function<void()>& work)
{
    std::vector<double> samples;
    for (int time = 0; time < times; ++time) {
        prepare();
        const double start = processorMilliseconds();
        work();
        samples.push_back(processorMilliseconds() - start);
    }
    report(what, samples);
}

const std::vector<std::string> latin = {
    "Meet at 14:30, platform 7",
    "The panel opens beside the pointer. It is small, dark and quick, it holds the last hundred things that "
    "were "
    "copied, and it goes away as soon as one of them has been chosen.",
    "https://www.example.org/reports/2024/quarterly?format=pdf&include=charts,tables,appendix",
    "for (const ClipboardItem& item : ordered)\n\tidentifiers.push_back(item.id);",
};
const std::vector<std::string> cyrillic = {
    "Встреча в 14:30, седьмая платформа",
    "Панель открывается рядом с указателем. Она маленькая, тёмная и быстрая, хранит последние сто "
    "скопированных "
    "вещей и исчезает, как только одна из них выбрана.",
};

void fill(PanelDesktop& desktop, const std::vector<std::string>& texts, int count)
{
    for (int number = 0; number < count; ++number)
        desktop.copy(std::to_string(number) + " " + texts[static_cast<std::size_t>(number) % texts.size()]);
}

void measureOpening(const char* what, const std::vector<std::string>& texts, int count)
{
    PanelDesktop desktop;
    fill(desktop, texts, count);
    measure(
        what, 40,
        [&] {
            closeAndDrop(desktop.state->panelController);
            runMainLoop();
        },
        [&] {
            desktop.state->showPanel();
            static_cast<void>(QTest::qWaitForWindowExposed(&desktop.window()));
            desktop.window().repaint();
        });
}

/// A touchpad moves the content by that many points.
void scroll(QWidget& list, double points)
{
    const QPointF place = list.rect().center();
    const QPoint delta(0, static_cast<int>(-points));
    QWheelEvent event(place, list.mapToGlobal(place), delta, delta, Qt::NoButton, Qt::NoModifier,
                      Qt::ScrollUpdate, false);
    QApplication::sendEvent(&list, &event);
}

void measureOpenPanel()
{
    PanelDesktop desktop;
    fill(desktop, latin, 100);
    desktop.openPanel();
    int copies = 0;
    measure(
        "whole panel drawn again", 100, [] {}, [&] { desktop.window().repaint(); });
    measure(
        "selection moved, 100 rows", 99, [] {},
        [&] {
            desktop.view().moveSelection(1);
            runMainLoop();
        });
    for (const double direction : {-1.0, 1.0}) {
        measure(
            "a frame of scrolling, 100 rows", 200, [] {},
            [&] {
                scroll(desktop.list(), direction * 25);
                runMainLoop();
            });
    }
    measure(
        "one entry captured while open", 20,
        [&] { desktop.pasteboard->copyFromElsewhere("fresh " + std::to_string(copies++)); },
        [&] {
            desktop.tick();
            runMainLoop();
        });
}

} // namespace

} // namespace tessel::test

int main(int argumentCount, char** arguments)
{
    QApplication application(argumentCount, arguments);
    if (const QString font = qEnvironmentVariable("TESSEL_FONT"); !font.isEmpty())
        QApplication::setFont(QFont(font));
    using namespace tessel::test;
    measureOpening("opened, first time and again, 0 entries", latin, 0);
    measureOpening("opened, 100 entries, Latin", latin, 100);
    measureOpening("opened, 100 entries, Cyrillic", cyrillic, 100);
    measureOpenPanel();
}
