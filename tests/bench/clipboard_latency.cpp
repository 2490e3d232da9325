// A clipboard history full of megabytes, and what it costs on the main thread: fails when taking a
// text or a key of a search takes longer than a user may feel.

#include "Features/Clipboard/ClipboardManager.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

using namespace orvelle;

namespace {

constexpr int texts = 48;
constexpr std::size_t textLength = 1'000'000; // bytes
constexpr double longestCapture = 5;          // milliseconds
constexpr double longestKey = 30;             // milliseconds

/// The simulated machine with a real loop and its threads.
class Machine : public SimulatedPlatform {
public:
    QtRunLoop loop; ///< dies first: its threads use the others
    RunLoop& runLoop() override { return loop; }
};

/// Prose with capitals and accents, as folding has to change all of it.
std::string text(int index) {
    std::string text = "Text " + std::to_string(index) + ". ";
    while (text.size() < textLength)
        text += "Die Äpfel aus Málaga schmecken NACH Sommer, und die Straße ist noch warm. ";
    return text;
}

/// Of this thread's processor time, which other work on the machine does not stretch.
double milliseconds(const std::function<void()>& work) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
    };
    const double start = now();
    work();
    return now() - start;
}

} // namespace

int main(int count, char** values) {
    const QCoreApplication application(count, values);
    Machine machine;
    ClipboardManager manager(machine);
    manager.start();
    double capture = 0;
    for (int index = 0; index < texts; ++index) {
        machine.pasteboardPort.copy(text(index));
        const auto before = manager.items->size();
        while (manager.items->size() == before)
            capture = std::max(capture, milliseconds([] { QCoreApplication::processEvents(); }));
    }
    double key = 0;
    // Keys that are nowhere, so that each text is searched to its end.
    for (const auto* typed : {"q", "qu", "ez", "sommer nach"})
        key = std::max(key, milliseconds([&] { manager.itemsContaining(typed); }));
    const auto found = manager.itemsContaining("äPFEL").size();
    std::printf("%zu texts of %zu bytes: capture %.1f ms at most, key %.1f ms at most\n",
                manager.items->size(), textLength, capture, key);
    return found == texts && capture <= longestCapture && key <= longestKey ? 0 : 1;
}
