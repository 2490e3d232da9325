#include <QGuiApplication>
#include <QQuickWindow>
#include <gtest/gtest.h>

int main(int count, char** values) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(count, values);
    testing::InitGoogleTest(&count, values);
    return RUN_ALL_TESTS();
}
