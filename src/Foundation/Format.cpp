#include "Foundation/Format.h"

#include <locale.h>

#include <clocale>
#include <cstdarg>
#include <cstdio>

namespace orvelle {

namespace {

/// A toolkit sets the process's locale to the user's, and with it the decimal point.
class CLocaleScope {
public:
    CLocaleScope() : previous_(uselocale(cLocale())) {}
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;
    ~CLocaleScope() { uselocale(previous_); }

private:
    static locale_t cLocale() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }
    locale_t previous_;
};

} // namespace

std::string format(const char* pattern, ...) {
    const CLocaleScope scope;
    va_list arguments;
    va_start(arguments, pattern);
    va_list measuring;
    va_copy(measuring, arguments);
    const int length = std::vsnprintf(nullptr, 0, pattern, measuring);
    va_end(measuring);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (length > 0)
        std::vsnprintf(text.data(), text.size() + 1, pattern, arguments);
    va_end(arguments);
    return text;
}

} // namespace orvelle
