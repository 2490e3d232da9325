#include "Views/Qt/FieldClipboard.h"

#include "Foundation/Text.h"
#include "Platform/Pasteboard.h"
#include "Views/Qt/Style.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace orvelle {

void FieldClipboard::attach(const ViewEnvironment& environment) {
    platform_ = &environment.platform;
}

void FieldClipboard::setField(QQuickItem* field) {
    field_ = field;
    QObject::disconnect(QGuiApplication::clipboard(), nullptr, field, nullptr);
    Q_EMIT fieldChanged();
}

void FieldClipboard::paste() {
    reading_ = platform_->pasteboard().readString([this](const auto& text) { take(text); });
}

void FieldClipboard::pasteSelection() {
    reading_ = platform_->pasteboard().readSelection([this](const auto& text) { take(text); });
}

void FieldClipboard::take(const std::optional<std::string>& text) {
    if (!text)
        return;
    // The field cuts what is left; no character takes more than four bytes.
    const auto most = std::string_view(*text).substr(0, 4 * FieldLimit::longestInput);
    Q_EMIT pasted(QString::fromStdString(Text::inOneLine(most)));
}

} // namespace orvelle
