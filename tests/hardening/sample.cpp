#include <cstdlib>
#include <cstring>
#include <vector>

/// A size that only the program knows at run time: level 3 of _FORTIFY_SOURCE checks it, level 2
/// does not.
char* copyOf(const char* text, std::size_t room, std::size_t length) {
    auto* copy = static_cast<char*>(std::malloc(room));
    if (copy)
        std::memcpy(copy, text, length);
    return copy;
}

int main(int count, char** values) {
    const std::vector<int> numbers(static_cast<std::size_t>(count));
    char line[64];
    std::strncpy(line, values[0], sizeof line - 1);
    auto* copy = copyOf(line, static_cast<std::size_t>(count) * 64, sizeof line);
    const int sum = numbers[static_cast<std::size_t>(count) - 1] + (copy ? copy[0] : 0);
    std::free(copy);
    return sum == 0;
}
