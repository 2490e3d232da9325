#include "Views/Qt/Binding.h"

namespace orvelle {

void Binding::classBegin() {
    const auto* engine = qobject_cast<ViewEngine*>(qmlEngine(this));
    Q_ASSERT_X(engine, "Binding", "views are loaded by a ViewEngine");
    attach(engine->environment());
    refresh();
    isAttached_ = true;
}

void Binding::refreshLater() {
    if (!isAttached_ || isRefreshPending_)
        return;
    isRefreshPending_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            isRefreshPending_ = false;
            refresh();
        },
        Qt::QueuedConnection);
}

} // namespace orvelle
