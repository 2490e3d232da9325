#pragma once

#include "Features/Clipboard/ClipboardHistoryView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/Values.h"

#include <QVariantList>

#include <optional>

namespace orvelle {

struct ClipboardRowValue {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(orvelle::SymbolValue type MEMBER type)
    Q_PROPERTY(orvelle::TextValue preview MEMBER preview)
    Q_PROPERTY(QVariantList details MEMBER details)
    Q_PROPERTY(orvelle::SymbolValue copyButton MEMBER copyButton)
    Q_PROPERTY(orvelle::SymbolValue deleteButton MEMBER deleteButton)

public:
    QString id;
    SymbolValue type;
    TextValue preview;
    QVariantList details;
    SymbolValue copyButton;
    SymbolValue deleteButton;
    bool operator==(const ClipboardRowValue&) const = default;
};

/// The lengths of a row, for QML.
class ClipboardRowStyle : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    using Row = ClipboardHistoryView::ClipboardItemRow;
    ORVELLE_CONSTANT(double, spacing, Row)
    ORVELLE_CONSTANT(double, horizontalPadding, Row)
    ORVELLE_CONSTANT(double, verticalPadding, Row)
    ORVELLE_CONSTANT(double, cornerRadius, Row)
    ORVELLE_CONSTANT(double, symbolWidth, Row)
    ORVELLE_CONSTANT(double, textSpacing, Row)
    ORVELLE_CONSTANT(double, detailSpacing, Row)
    ORVELLE_CONSTANT(double, buttonOpacity, Row)
    ORVELLE_CONSTANT(QColor, hoverColor, Row)
    ORVELLE_CONSTANT(double, hoverDuration, Row)
};

class ClipboardHistoryBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, spacing, ClipboardHistoryView)
    ORVELLE_CONSTANT(double, searchPadding, ClipboardHistoryView)
    ORVELLE_CONSTANT(orvelle::TextValue, searchStyle, ClipboardHistoryView)
    ORVELLE_CONSTANT(QString, searchPrompt, ClipboardHistoryView)
    ORVELLE_CONSTANT(QColor, promptColor, ClipboardHistoryView)
    ORVELLE_CONSTANT(QString, copied, ClipboardHistoryView)
    ORVELLE_CONSTANT(double, focusDelay, ClipboardHistoryView)
    ORVELLE_CONSTANT(double, deletionDuration, ClipboardHistoryView)
    ORVELLE_SHOWN(orvelle::SymbolValue, searchSymbol)
    ORVELLE_SHOWN(orvelle::PlaceholderValue, emptyState)
    ORVELLE_LIST(ClipboardRowValue, rows)

public:
    Q_INVOKABLE void search(const QString& text);
    Q_INVOKABLE void copy(const QString& id);
    Q_INVOKABLE void remove(const QString& id);

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<ClipboardHistoryView> view_;
};

} // namespace orvelle
