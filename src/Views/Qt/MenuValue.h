#pragma once

#include "Views/Components/MenuEntry.h"

#include <QObject>
#include <QStringList>

#include <vector>

namespace orvelle {

/// A context menu as QML sees it: the titles to show, and a call for the one that was picked.
struct MenuValue {
    Q_GADGET
    Q_PROPERTY(QStringList titles READ titles)
    Q_PROPERTY(int checkedRow READ checkedRow)

public:
    std::vector<MenuEntry> entries;

    QStringList titles() const;
    /// -1 when none is.
    int checkedRow() const;
    /// Nothing for a row that does not exist.
    Q_INVOKABLE void perform(int row) const;
};

} // namespace orvelle
