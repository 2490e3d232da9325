#include "Views/UnsavedNoticeBinding.h"

namespace orvelle {

void UnsavedNoticeBinding::attach(const ViewEnvironment& environment) {
    unsaved_ = &environment.platform.unsavedChanges();
    follow(unsaved_->files);
}

void UnsavedNoticeBinding::refresh() {
    show_notice(toQt(UnsavedNotice::text(unsaved_->files)));
}

} // namespace orvelle
