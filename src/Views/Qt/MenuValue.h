#pragma once

#include "Views/Components/MenuEntry.h"

#include <QObject>
#include <QVariant>

#include <vector>

namespace orvelle {

struct MenuLineValue {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(bool isChecked MEMBER isChecked)
    Q_PROPERTY(bool isDestructive MEMBER isDestructive)
    Q_PROPERTY(bool followsDivider MEMBER followsDivider)

public:
    QString title;
    bool isChecked = false;
    bool isDestructive = false;
    bool followsDivider = false;
    bool operator==(const MenuLineValue&) const = default;
};

/// A context menu as QML sees it: the lines to show, and a call for the one that was picked.
struct MenuValue {
    Q_GADGET
    Q_PROPERTY(QVariantList lines READ lines)

public:
    std::vector<MenuEntry> entries;

    QVariantList lines() const; ///< of `MenuLineValue`
    /// Its entries, and behind a divider those of another menu.
    Q_INVOKABLE orvelle::MenuValue followedBy(const orvelle::MenuValue& other) const;
    /// Nothing for a row that does not exist.
    Q_INVOKABLE void perform(int row) const;
};

} // namespace orvelle
