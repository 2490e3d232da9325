#include "Platform/Qt/QtApplication.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QSysInfo>

#include <cstdio>
#include <fstream>
#include <map>

namespace orvelle {

namespace {

/// Lines of `NAME=value` or `NAME="value"`.
std::map<std::string, std::string> readAssignments(const std::filesystem::path& path) {
    std::map<std::string, std::string> values;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const auto equals = line.find('=');
        if (equals == std::string::npos)
            continue;
        std::string value = line.substr(equals + 1);
        const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                              (value.front() == '"' || value.front() == '\'');
        if (isQuoted)
            value = value.substr(1, value.size() - 2);
        values[line.substr(0, equals)] = value;
    }
    return values;
}

} // namespace

QtApplication::QtApplication(const std::filesystem::path& osRelease) {
    auto values = readAssignments(osRelease);
    std::sscanf(values["VERSION_ID"].c_str(), "%ld.%ld.%ld", &version_.major, &version_.minor,
                &version_.patch);
    versionString_ = values["PRETTY_NAME"];
    if (versionString_.empty())
        versionString_ = "Linux";
}

std::string QtApplication::architecture() const {
    return QSysInfo::currentCpuArchitecture().toStdString(); // "arm64" for what Linux calls aarch64
}

std::size_t QtApplication::runModal(const Alert& alert) {
    QMessageBox box;
    box.setWindowTitle(QStringLiteral("Orvelle"));
    box.setIcon(QMessageBox::Warning);
    box.setText(QString::fromStdString(alert.messageText));
    box.setInformativeText(QString::fromStdString(alert.informativeText));
    std::vector<QAbstractButton*> buttons;
    for (const auto& title : alert.buttons) {
        const auto role = buttons.empty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole;
        buttons.push_back(box.addButton(QString::fromStdString(title), role));
    }
    if (!buttons.empty()) {
        box.setDefaultButton(static_cast<QPushButton*>(buttons.front()));
        box.setEscapeButton(buttons.back());
    }
    box.exec();
    for (std::size_t index = 0; index < buttons.size(); ++index)
        if (buttons[index] == box.clickedButton())
            return index;
    return buttons.empty() ? 0 : buttons.size() - 1;
}

void QtApplication::terminate() {
    // Queued, so that it also ends a loop that is only about to start.
    QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit,
                              Qt::QueuedConnection);
}

} // namespace orvelle
