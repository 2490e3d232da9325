#include "Platform/Qt/FileMimeData.h"

#include <QUrl>

namespace orvelle {

std::unique_ptr<QMimeData> fileMimeData(const std::vector<std::string>& urls) {
    QByteArray addresses;
    QByteArray copied = "copy"; // rather than moved, once pasted
    QStringList paths;
    for (const auto& url : urls) {
        const auto address = QByteArray::fromStdString(url);
        addresses += address + "\r\n";
        copied += '\n' + address;
        paths += QUrl::fromEncoded(address).toLocalFile();
    }
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("text/uri-list"), addresses);
    data->setData(QStringLiteral("x-special/gnome-copied-files"), copied);
    data->setText(paths.join(u'\n')); // for editors and terminals
    return data;
}

} // namespace orvelle
