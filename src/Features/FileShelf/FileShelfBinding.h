#pragma once

#include "Features/FileShelf/FileShelfView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <functional>
#include <optional>

namespace orvelle {

class FileIcons;

struct ShelfItemValue {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(orvelle::TextValue name MEMBER name)

public:
    QString id;
    QString icon;
    TextValue name;
    bool operator==(const ShelfItemValue&) const = default;
};

class FileShelfBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, gridSpacing, FileShelfView)
    ORVELLE_CONSTANT(double, gridPadding, FileShelfView)
    ORVELLE_CONSTANT(double, spacing, FileShelfView)
    ORVELLE_CONSTANT(double, shareAllBottomPadding, FileShelfView)
    ORVELLE_CONSTANT(double, removalDuration, FileShelfView)
    ORVELLE_CONSTANT(double, emptySpacing, FileShelfView)
    ORVELLE_CONSTANT(double, emptyHeight, FileShelfView)
    ORVELLE_CONSTANT(double, emptyPadding, FileShelfView)
    ORVELLE_CONSTANT(double, emptyCornerRadius, FileShelfView)
    ORVELLE_CONSTANT(double, emptyLineWidth, FileShelfView)
    ORVELLE_CONSTANT(double, emptyDash, FileShelfView)
    ORVELLE_CONSTANT(double, cellSpacing, ShelfItemCell)
    ORVELLE_CONSTANT(double, cellPadding, ShelfItemCell)
    ORVELLE_CONSTANT(double, iconSize, ShelfItemCell)
    ORVELLE_CONSTANT(double, nameWidth, ShelfItemCell)
    ORVELLE_CONSTANT(double, nameSize, ShelfItemCell)
    ORVELLE_SHOWN(bool, isEmpty)
    ORVELLE_SHOWN(bool, isDropAwaited)
    ORVELLE_SHOWN(orvelle::SymbolValue, emptySymbol)
    ORVELLE_SHOWN(orvelle::TextValue, emptyText)
    ORVELLE_SHOWN(QColor, dropOutlineColor)
    ORVELLE_SHOWN(orvelle::SymbolValue, shareAllSymbol)
    ORVELLE_SHOWN(orvelle::TextValue, shareAllText)
    ORVELLE_LIST(ShelfItemValue, cells)
    Q_PROPERTY(double columnSpacing READ columnSpacing CONSTANT FINAL)

public:
    double columnSpacing() const { return FileShelfView::columns.spacing; }
    Q_INVOKABLE double columnWidth(double width) const;

    // What can be done with the file of this id.
    Q_INVOKABLE void open(const QString& id);
    Q_INVOKABLE void copy(const QString& id);
    Q_INVOKABLE void remove(const QString& id);
    Q_INVOKABLE orvelle::MenuValue contextMenu(const QString& id) const;
    /// Lets the user drag the file into another program; ends with the drag. Call it when no event
    /// of the pointer is being handled.
    Q_INVOKABLE void drag(const QString& id);

    Q_INVOKABLE void shareAll();
    /// The user wants to work here with keys.
    Q_INVOKABLE void takeKeyboard() const;
    /// Puts the files that were copied on the shelf.
    Q_INVOKABLE void paste();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<FileShelfView> view_;
    const FileIcons* icons_ = nullptr;
    const NotchState* state_ = nullptr;
    std::function<void()> takeKeyboard_;
    Subscription pasting_;
};

} // namespace orvelle
