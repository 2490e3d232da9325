#include <QGuiApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

#include <iostream>

namespace {

/// A view that complains is a view that is broken.
void failOnWarnings(QtMsgType type, const QMessageLogContext&, const QString& message) {
    // The platform that draws nowhere has no pointer and keyboard to hand to a menu.
    const bool isExpected = message.startsWith("This plugin does not support grabbing");
    if (type != QtDebugMsg && type != QtInfoMsg && !isExpected &&
        testing::UnitTest::GetInstance()->current_test_info())
        ADD_FAILURE() << message.toStdString();
    else
        std::cerr << message.toStdString() << std::endl;
}

} // namespace

int main(int count, char** values) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(count, values);
    testing::InitGoogleTest(&count, values);
    qInstallMessageHandler(failOnWarnings);
    return RUN_ALL_TESTS();
}
