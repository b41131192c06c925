// What it costs the calling thread to change a preference, keystroke by keystroke, and how long it takes until no kill
// can lose the change, beside one replacement of a file of the same size by the least that can do it.
#include "linux/preferences/json_preferences.h"
#include "timing.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSaveFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

using namespace pingwell;
using namespace std::chrono_literals;

constexpr int rounds = 60;
// Fast enough for several to be written together, so that some are made while others are being written.
constexpr auto betweenKeystrokes = 20ms;

double replaceAlone(const QString &path, const QByteArray &bytes)
{
    QElapsedTimer timer;
    timer.start();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        std::abort();
    return milliseconds(timer);
}

double setOnce(JsonPreferences &preferences, const QString &key, const QString &value)
{
    QElapsedTimer timer;
    timer.start();
    preferences.setString(key, value);
    return milliseconds(timer);
}

/// How long a kill could still lose it: until the file is replaced and its folder synced.
double keepOnce(JsonPreferences &preferences, const QString &key, const QString &value)
{
    QElapsedTimer timer;
    timer.start();
    preferences.setString(key, value);
    preferences.flush();
    return milliseconds(timer);
}

void print(const char *what, const std::vector<double> &times, double floor)
{
    const double longest = *std::max_element(times.begin(), times.end());
    std::printf("%-32s median %8.4f ms (%.4f x)  longest %8.4f ms (%.4f x)\n", what, median(times),
                median(times) / floor, longest, longest / floor);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("preferences.json"));
    JsonPreferences preferences(path);
    // As much as a program in use has to remember.
    for (int key = 0; key < 20; ++key)
        preferences.setString(QStringLiteral("key-%1").arg(key), QString(60, u'x'));
    std::vector<double> floors;
    std::vector<double> keystrokes;
    std::vector<double> kept;
    QString address;
    for (int round = 0; round < rounds; ++round) {
        floors.push_back(replaceAlone(folder.filePath(QStringLiteral("floor")), QByteArray(2000, 'x')));
        address += u'a';
        keystrokes.push_back(setOnce(preferences, QStringLiteral("address"), address));
        std::this_thread::sleep_for(betweenKeystrokes);
    }
    for (int round = 0; round < rounds; ++round) {
        kept.push_back(keepOnce(preferences, QStringLiteral("session"), QString::number(round)));
        std::this_thread::sleep_for(betweenKeystrokes);
    }
    const double floor = median(floors);
    std::printf("one file replaced %8.3f ms\n", floor);
    print("a change, for who calls", keystrokes, floor);
    print("a change, until it is kept", kept, floor);
    return 0;
}
