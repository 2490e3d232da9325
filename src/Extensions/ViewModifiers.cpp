#include "Extensions/ViewModifiers.h"

namespace orvelle {

double FadeInModifier::opacity(bool isVisible) {
    return isVisible ? 1 : 0;
}

double FadeInModifier::offset(bool isVisible) {
    return isVisible ? 0 : 5;
}

} // namespace orvelle
