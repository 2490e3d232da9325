#pragma once

#include "Views/Components/EntryList.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <memory>

namespace orvelle {

struct EntryRowValue {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(orvelle::TextValue text MEMBER text)
    Q_PROPERTY(bool isStruckThrough MEMBER isStruckThrough)
    Q_PROPERTY(orvelle::SymbolValue button MEMBER button)
    Q_PROPERTY(bool isButtonFirst MEMBER isButtonFirst)
    Q_PROPERTY(QString help MEMBER help)
    Q_PROPERTY(orvelle::SwipeActionValue leading MEMBER leading)
    Q_PROPERTY(orvelle::SwipeActionValue trailing MEMBER trailing)

public:
    QString id;
    TextValue text;
    bool isStruckThrough = false;
    SymbolValue button;
    bool isButtonFirst = true;
    QString help;
    SwipeActionValue leading;
    SwipeActionValue trailing;
    bool operator==(const EntryRowValue&) const = default;
};

/// For the panels that are an `EntryList`.
class EntryListBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("each list has a binding of its own")
    ORVELLE_CONSTANT(double, fieldHorizontalPadding, EntryList)
    ORVELLE_CONSTANT(double, fieldVerticalPadding, EntryList)
    ORVELLE_CONSTANT(QColor, rowBackground, EntryList)
    ORVELLE_CONSTANT(double, focusDelay, EntryList)
    ORVELLE_CONSTANT(double, removalDuration, EntryList)
    ORVELLE_CONSTANT(orvelle::SymbolValue, addButton, EntryList)
    ORVELLE_CONSTANT(orvelle::TextValue, fieldStyle, EntryList)
    ORVELLE_CONSTANT(QColor, promptColor, EntryList)
    ORVELLE_SHOWN(QString, prompt)
    ORVELLE_SHOWN(QString, leadingDone)
    ORVELLE_SHOWN(orvelle::PlaceholderValue, emptyState)
    ORVELLE_LIST(EntryRowValue, rows)

public:
    Q_INVOKABLE bool canAdd(const QString& text) const;
    Q_INVOKABLE void add(const QString& text);
    Q_INVOKABLE void performLeading(const QString& id);
    Q_INVOKABLE void performTrailing(const QString& id);
    Q_INVOKABLE orvelle::MenuValue contextMenu() const;

protected:
    void refresh() override;

    std::unique_ptr<EntryList> view_; ///< made by `attach`
};

} // namespace orvelle
