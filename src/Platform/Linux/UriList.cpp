#include "Platform/Linux/UriList.h"

#include "Foundation/FileURL.h"

#include <unistd.h>

namespace orvelle {

std::vector<std::string> filesOf(std::string_view uriList) {
    char hostName[256] = {};
    if (gethostname(hostName, sizeof hostName - 1) != 0)
        hostName[0] = 0;
    constexpr std::size_t most = 1000;
    return FileURL::list(uriList, hostName, most);
}

} // namespace orvelle
