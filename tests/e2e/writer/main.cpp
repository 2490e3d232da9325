// Changes a list and saves it, on and on, until it is killed. After each save that is on the disk
// it writes the number of the list's latest task to its output.

#include "Features/Todo/TodoManager.h"
#include "Platform/Linux/PosixFileSystem.h"
#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedPlatform.h"

#include <QCoreApplication>

#include <unistd.h>

#include <string>

using namespace orvelle;

namespace {

/// Tells each write that is done.
class TellingFileSystem : public PosixFileSystem {
public:
    bool write(const std::string& path, std::string_view bytes) override {
        const bool isWritten = PosixFileSystem::write(path, bytes);
        if (isWritten)
            tell(Json::parse(bytes)->array()->back().find("title")->string().value() + "\n");
        return isWritten;
    }

private:
    static void tell(const std::string& line) {
        if (::write(STDOUT_FILENO, line.data(), line.size()) < 0)
            _exit(1);
    }
};

struct Machine : SimulatedPlatform {
    TellingFileSystem files;
    QtRunLoop loop;
    FileSystem& fileSystem() override { return files; }
    RunLoop& runLoop() override { return loop; }
};

} // namespace

int main(int count, char** values) {
    const QCoreApplication application(count, values);
    constexpr std::size_t longest = 50;
    Machine machine;
    TodoManager todo(machine);
    if (!machine.logPort.lines.empty())
        return 2; // the list that was left cannot be read
    int latest = todo.items->empty() ? 0 : std::stoi(todo.items->back().title);
    const auto timer = machine.loop.every(0.0005, [&] {
        todo.addItem(std::to_string(++latest));
        if (todo.items->size() > longest)
            todo.removeItem(todo.items->front());
    });
    return QCoreApplication::exec();
}
