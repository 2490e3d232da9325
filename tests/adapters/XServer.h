#pragma once

#include "Support/TemporaryVariable.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <memory>

namespace orvelle {

/// A display of the test's own that nobody sees; DISPLAY names it while it lives.
class XServer {
public:
    XServer() {
        process_.setProcessChannelMode(QProcess::SeparateChannels);
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.start(QStringLiteral("Xvfb"),
                       {QStringLiteral("-displayfd"), QStringLiteral("1"),
                        QStringLiteral("-noreset"), QStringLiteral("-nolisten"),
                        QStringLiteral("tcp"), QStringLiteral("-screen"), QStringLiteral("0"),
                        QStringLiteral("640x480x24")});
        EXPECT_TRUE(process_.waitForReadyRead(20000)) << "Xvfb does not start";
        const auto name = ":" + process_.readLine().trimmed();
        display_ = std::make_unique<TemporaryVariable>("DISPLAY", name.constData());
    }
    ~XServer() {
        process_.terminate();
        process_.waitForFinished(10000);
    }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

private:
    QProcess process_;
    std::unique_ptr<TemporaryVariable> display_;
};

} // namespace orvelle
