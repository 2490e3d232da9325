#include "Platform/Linux/BusFileViewer.h"

#include "Platform/Qt/QtRunLoop.h"
#include "Platform/Simulated/SimulatedMachine.h"
#include "adapters/EventLoopWait.h"
#include "adapters/PrivateBus.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

const QString fileViewer = QStringLiteral("org.freedesktop.FileManager1");
const QString fileViewerPath = QStringLiteral("/org/freedesktop/FileManager1");

class BusFileViewerTest : public testing::Test {
protected:
    PrivateBus bus;
    QtRunLoop runLoop;
    SimulatedLog log;
    SimulatedWorkspace workspace;
    BusFileViewer viewer{runLoop, log, workspace, bus.provider()};
    const std::vector<std::string> urls{"file:///tmp/shelf/a%20b.txt"};
};

TEST_F(BusFileViewerTest, AsksTheFileManagerToSelect) {
    MockService manager(bus, fileViewer, fileViewerPath,
                        MockService::empty(fileViewer, fileViewerPath, fileViewer));
    manager.addMethod(fileViewer, "ShowItems", "ass", "", "");
    viewer.select(urls);
    EXPECT_TRUE(waitUntil([&] { return manager.callCount("ShowItems") == 1; }));
    EXPECT_TRUE(workspace.documents.empty());
}

TEST_F(BusFileViewerTest, WithoutAFileManagerOpensTheFolder) {
    viewer.select(urls);
    EXPECT_TRUE(workspace.documents.empty()) << "nothing waits";
    EXPECT_TRUE(waitUntil([&] { return !workspace.documents.empty(); }));
    EXPECT_EQ(workspace.documents, std::vector<std::string>{"file:///tmp/shelf"});
}

TEST_F(BusFileViewerTest, WithoutFilesNobodyIsAsked) {
    viewer.select({});
    EXPECT_EQ(bus.connectionCount(), 0);
}

} // namespace
} // namespace orvelle
