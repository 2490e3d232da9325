#include "Platform/FileSystem.h"

namespace orvelle {

std::string describe(WriteFailure failure) {
    switch (failure) {
    case WriteFailure::full:
        return "the disk is full";
    case WriteFailure::overQuota:
        return "the disk quota is used up";
    case WriteFailure::readOnly:
        return "the disk is read-only";
    case WriteFailure::denied:
        return "no permission to write";
    case WriteFailure::tooLarge:
        return "the file is too large";
    case WriteFailure::obstructed:
        return "something else is in the file's place";
    case WriteFailure::broken:
        break;
    }
    return "the disk reports an error";
}

} // namespace orvelle
