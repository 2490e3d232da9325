#include "Platform/Linux/ShareServices.h"

#include "Platform/Linux/ProgramStart.h"

#include <QStandardPaths>
#include <QUrl>

namespace orvelle {

/// A program that takes files as arguments.
struct ShareServices::Sender {
    const char* program;
    const char* option; ///< before each file; null for none
    bool takesOne;      ///< is started once for each file
};

const std::vector<ShareServices::Sender>& ShareServices::mailSenders() {
    static const std::vector<Sender> senders = {{"xdg-email", "--attach", false}};
    return senders;
}

const std::vector<ShareServices::Sender>& ShareServices::deviceSenders() {
    // Each asks the user for the device.
    static const std::vector<Sender> senders = {
        {"kdeconnect-handler", nullptr, true},
        {"bluetooth-sendto", nullptr, false},
        {"blueman-sendto", nullptr, false},
    };
    return senders;
}

ShareServices::ShareServices(Pasteboard& pasteboard, const QString& path)
    : pasteboard_(pasteboard), folders_(path.split(u':', Qt::SkipEmptyParts)) {}

std::vector<ShareServices::Service>
ShareServices::servicesFor(const std::vector<std::string>& urls) const {
    std::vector<Service> services;
    offer(QStringLiteral("Mail"), mailSenders(), urls, services);
    offer(QStringLiteral("Send to Device"), deviceSenders(), urls, services);
    services.push_back({QStringLiteral("Copy"),
                        [&pasteboard = pasteboard_, urls] { pasteboard.writeFiles(urls); }});
    return services;
}

void ShareServices::offer(const QString& title, const std::vector<Sender>& senders,
                          const std::vector<std::string>& urls,
                          std::vector<Service>& services) const {
    for (const auto& sender : senders) {
        const auto program =
            QStandardPaths::findExecutable(QLatin1String(sender.program), folders_);
        if (program.isEmpty())
            continue;
        QList<QStringList> runs;
        for (const auto& url : urls) {
            if (runs.isEmpty() || sender.takesOne)
                runs.append(QStringList());
            if (sender.option)
                runs.last() += QLatin1String(sender.option);
            // Absolute, so that no file's name is taken for an option.
            runs.last() += QUrl::fromEncoded(QByteArray::fromStdString(url)).toLocalFile();
        }
        services.push_back({title, [program, runs] {
                                for (const auto& arguments : runs)
                                    startProgram(program, arguments);
                            }});
        return;
    }
}

} // namespace orvelle
