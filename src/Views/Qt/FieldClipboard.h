#pragma once

#include "Views/Qt/Binding.h"

#include <QPointer>
#include <QQuickItem>

#include <optional>
#include <string>

namespace orvelle {

/// Pastes into a text field. The toolkit's own fields read the clipboard at every change of it, and
/// wait for its owner while they do: this keeps the field from it.
class FieldClipboard : public Binding {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* field READ field WRITE setField NOTIFY fieldChanged FINAL)

public:
    QQuickItem* field() const { return field_; }
    void setField(QQuickItem* field);

    /// Reads the clipboard's text, which arrives with `pasted`, in one line.
    Q_INVOKABLE void paste();
    /// The same with the text that is selected somewhere.
    Q_INVOKABLE void pasteSelection();

Q_SIGNALS:
    void fieldChanged();
    void pasted(const QString& text);

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override {}

private:
    void take(const std::optional<std::string>& text);

    Platform* platform_ = nullptr;
    QPointer<QQuickItem> field_;
    Subscription reading_;
};

} // namespace orvelle
