#include "Features/Mirror/MirrorCollapsedBinding.h"

#include "Features/Mirror/MirrorCollapsedView.h"

namespace orvelle {

void MirrorCollapsedBinding::refresh() {
    show_icon(toQt(MirrorCollapsedView::icon()));
}

} // namespace orvelle
