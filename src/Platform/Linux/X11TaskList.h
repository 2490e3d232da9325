#pragma once

#include "Platform/Application.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Qt/QtApplication.h"

#include <QObject>

namespace orvelle {

/// Keeps the process's windows out of the desktop's task list and pager while it is an accessory.
class X11TaskList : public QObject {
public:
    explicit X11TaskList(QtApplication& application);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply(ActivationPolicy policy);
    static void setSkipped(xcb_window_t window, bool skipped);

    QtApplication& application_;
    Subscription policy_;
};

} // namespace orvelle
