#include "Platform/DefaultsFile.h"
#include "Platform/Simulated/SimulatedMachine.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace orvelle;

/// Whatever the file holds, a save keeps every value that could be read, loses no file that could
/// not, and leaves a file that reads the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(bytes), size);
    SimulatedFileSystem files;
    SimulatedLog log;
    const auto path = DefaultsStorage::path(files);
    files.files[path] = text;

    DefaultsFile first(files, log);
    if (log.lines.size() > 1)
        std::abort();
    if (size > 0 && files.files[path].empty() && files.files[path + ".corrupt.1"] != text)
        std::abort();
    first.set("own", true);
    if (!first.save(0))
        std::abort();

    const DefaultsFile second(files, log);
    if (first.keys() != second.keys())
        std::abort();
    for (const auto& key : first.keys())
        if (first.value(key) != second.value(key))
            std::abort();
    return 0;
}
