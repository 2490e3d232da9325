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
    Q_PROPERTY(QStringList symbols READ symbols)

public:
    std::vector<MenuEntry> entries;

    QStringList titles() const;
    /// Of each entry; empty when no entry has one.
    QStringList symbols() const;
    /// Nothing for a row that does not exist.
    Q_INVOKABLE void perform(int row) const;
};

} // namespace orvelle
