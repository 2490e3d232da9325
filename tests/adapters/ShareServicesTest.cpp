#include "Platform/Linux/ShareServices.h"

#include "Platform/Simulated/SimulatedFiles.h"
#include "Platform/Simulated/SimulatedPasteboard.h"
#include "Support/TemporaryFolder.h"
#include "adapters/EventLoopWait.h"

namespace orvelle {
namespace {

class ShareServicesTest : public testing::Test {
protected:
    QStringList titles() {
        QStringList titles;
        for (const auto& service : services().servicesFor(urls))
            titles += service.title;
        return titles;
    }
    void choose(const QString& title) {
        for (const auto& service : services().servicesFor(urls))
            if (service.title == title)
                return service.perform();
        ADD_FAILURE() << title.toStdString() << " is not offered";
    }
    std::string started() {
        EXPECT_TRUE(waitUntil([this] { return std::filesystem::exists(bin / "started"); }));
        return fileBytes(bin / "started");
    }
    ShareServices services() {
        return ShareServices(pasteboard, QString::fromStdString(bin.path()));
    }

    TemporaryFolder bin;
    SimulatedPasteboard pasteboard;
    const std::vector<std::string> urls{"file:///tmp/a%20b.txt", "file:///tmp/--help"};
};

TEST_F(ShareServicesTest, OnlyWhatIsInstalledIsOffered) {
    EXPECT_EQ(titles(), QStringList{"Copy"});
    bin.writeProgram("xdg-email");
    bin.writeProgram("blueman-sendto");
    EXPECT_EQ(titles(), QStringList({"Mail", "Send to Device", "Copy"}));
}

TEST_F(ShareServicesTest, MailAttachesTheFiles) {
    bin.writeProgram("xdg-email");
    choose("Mail");
    EXPECT_EQ(started(), "xdg-email --attach /tmp/a b.txt --attach /tmp/--help\n");
}

TEST_F(ShareServicesTest, ADeviceIsSentThePaths) {
    bin.writeProgram("bluetooth-sendto");
    choose("Send to Device");
    EXPECT_EQ(started(), "bluetooth-sendto /tmp/a b.txt /tmp/--help\n");
}

TEST_F(ShareServicesTest, CopyPutsTheFilesOnThePasteboard) {
    choose("Copy");
    EXPECT_EQ(pasteboard.files, urls);
}

} // namespace
} // namespace orvelle
