#include "Platform/Qt/QtPasteboard.h"

#include "Platform/Qt/FileMimeData.h"

#include <QClipboard>
#include <QGuiApplication>

namespace orvelle {

void QtPasteboard::writeFiles(const std::vector<std::string>& urls) {
    QGuiApplication::clipboard()->setMimeData(fileMimeData(urls).release());
}

} // namespace orvelle
