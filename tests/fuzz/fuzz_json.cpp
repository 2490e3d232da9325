#include "Foundation/Json.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using orvelle::Json;

/// Whatever is read can be written, and what is written reads back equal.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto json = Json::parse({reinterpret_cast<const char*>(bytes), size});
    if (json && Json::parse(json->text()) != json)
        std::abort();
    return 0;
}
