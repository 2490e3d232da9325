#include "Platform/Linux/ProcHostStatistics.h"

#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

namespace orvelle {
namespace {

class ProcHostStatisticsTest : public testing::Test {
protected:
    TemporaryFolder proc;
    ProcHostStatistics host{proc.path()};
};

TEST_F(ProcHostStatisticsTest, SystemHoldsInterruptsAndIdleHoldsWaiting) {
    proc.write("stat", "cpu  1 2 3 4 5 6 7 8 9 10\n"
                       "cpu0 100 20 30 400 50 6 7 8 9 10\n"
                       "cpu1 1 2 3 4 5 6 7 0 0 0\n"
                       "intr 12345 0 0\n");
    const auto ticks = host.processorTicks();
    ASSERT_TRUE(ticks);
    EXPECT_EQ(*ticks,
              (std::vector<ProcessorTicks>{{.user = 100, .system = 43, .idle = 450, .nice = 20},
                                           {.user = 1, .system = 16, .idle = 9, .nice = 2}}));
}

TEST_F(ProcHostStatisticsTest, ACounterThatTheKernelCorrectsDownwardsNeverFalls) {
    proc.write("stat", "cpu0 100 0 0 400 50 0 0 0\nintr 0\n");
    host.processorTicks();
    proc.write("stat", "cpu0 110 0 0 400 40 0 0 0\nintr 0\n");
    EXPECT_EQ(host.processorTicks()->front(), (ProcessorTicks{.user = 110, .idle = 450}));
    proc.write("stat", "cpu0 110 0 0 420 45 0 0 0\nintr 0\n");
    EXPECT_EQ(host.processorTicks()->front(), (ProcessorTicks{.user = 110, .idle = 475}));
}

TEST_F(ProcHostStatisticsTest, AProcessorThatGoesOfflineKeepsItsTicks) {
    proc.write("stat", "cpu0 10 0 0 40 0 0 0\ncpu1 20 0 0 30 0 0 0\nintr 0\n");
    host.processorTicks();
    proc.write("stat", "cpu1 25 0 0 35 0 0 0\nintr 0\n");
    EXPECT_EQ(*host.processorTicks(),
              (std::vector<ProcessorTicks>{{.user = 10, .idle = 40}, {.user = 25, .idle = 35}}));
}

TEST_F(ProcHostStatisticsTest, AThousandProcessorsAreAllRead) {
    std::string text = "cpu  1 1 1 1 1 1 1 1 1 1\n";
    for (int index = 0; index < 1000; ++index)
        text += "cpu" + std::to_string(index) + " 1000000 0 0 2000000 0 0 0 0 0 0\n";
    proc.write("stat", text + "intr 1\n");
    const auto ticks = host.processorTicks();
    ASSERT_TRUE(ticks);
    ASSERT_EQ(ticks->size(), 1000u);
    EXPECT_EQ(ticks->back(), (ProcessorTicks{.user = 1000000, .idle = 2000000}));
}

TEST_F(ProcHostStatisticsTest, WhatCannotBeReadIsNone) {
    EXPECT_FALSE(host.processorTicks());
    EXPECT_FALSE(host.virtualMemory());
    EXPECT_EQ(host.physicalMemory(), 0u);
    proc.write("stat", "nonsense\n");
    proc.write("meminfo", "MemTotal: 100 kB\n");
    EXPECT_FALSE(host.processorTicks());
    EXPECT_FALSE(host.virtualMemory());
}

TEST_F(ProcHostStatisticsTest, MemoryInUseIsTheTotalLessWhatIsAvailable) {
    proc.write("meminfo", "MemTotal:       16000000 kB\n"
                          "MemFree:         1000000 kB\n"
                          "MemAvailable:    6000000 kB\n");
    ProcHostStatistics fresh(proc.path());
    const auto memory = fresh.virtualMemory();
    ASSERT_TRUE(memory);
    const auto pages = memory->activePages + memory->wiredPages + memory->compressorPages;
    EXPECT_EQ(pages * fresh.pageSize(), 10000000ull * 1024);
    EXPECT_EQ(fresh.physicalMemory(), 16000000ull * 1024);
}

/// The running kernel's interfaces, with devices behind those that the test names.
class InterfaceTest : public testing::Test {
protected:
    std::optional<InterfaceEntry::Counters> counters(const std::string& name) {
        const auto entries = host.interfaces().value_or(std::vector<InterfaceEntry>{});
        const auto found = std::ranges::find(entries, name, &InterfaceEntry::name);
        return found == entries.end() ? std::nullopt : found->counters;
    }

    TemporaryFolder sys;
    ProcHostStatistics host{"/proc", sys.path()};
};

TEST_F(InterfaceTest, OneWithADeviceBehindItIsCountedWhateverItsName) {
    sys.write("class/net/lo/device/uevent", "");
    EXPECT_TRUE(counters("en-lo"));
    EXPECT_FALSE(counters("lo"));
}

TEST_F(InterfaceTest, OneWithoutADeviceIsNotCounted) {
    sys.write("class/net/lo/address", "");
    EXPECT_TRUE(counters("virtual-lo"));
    EXPECT_FALSE(counters("lo"));
    EXPECT_FALSE(counters("en-lo"));
}

TEST(PresentedNameTest, OnlyADeviceMakesTheNameOneThatIsCounted) {
    const auto presented = ProcHostStatistics::presentedName;
    EXPECT_EQ(presented("enp3s0", true), "enp3s0");
    EXPECT_EQ(presented("wlp2s0", true), "en-wlp2s0");
    EXPECT_EQ(presented("wwan0", true), "en-wwan0");
    EXPECT_EQ(presented("uplink", true), "en-uplink");
    for (const char* name :
         {"lo", "enbr0", "eth0", "tun0", "utun3", "wg0", "docker0", "enp3s0.100"})
        EXPECT_EQ(presented(name, false), std::string("virtual-") + name);
}

std::optional<InterfaceEntry::Counters> loopback(ProcHostStatistics& host) {
    const auto entries = host.interfaces().value_or(std::vector<InterfaceEntry>{});
    const auto found = std::ranges::find(entries, "virtual-lo", &InterfaceEntry::name);
    return found == entries.end() ? std::nullopt : found->counters;
}

TEST(RealHostTest, LoopbackCountersGrowWithWhatIsSent) {
    ProcHostStatistics host;
    const auto before = loopback(host);
    ASSERT_TRUE(before);
    const int sender = ::socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in self{};
    self.sin_family = AF_INET;
    self.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ASSERT_EQ(::bind(sender, reinterpret_cast<const sockaddr*>(&self), sizeof self), 0);
    socklen_t length = sizeof self;
    ASSERT_EQ(::getsockname(sender, reinterpret_cast<sockaddr*>(&self), &length), 0);
    const std::string text(1000, 'x');
    ASSERT_EQ(::sendto(sender, text.data(), text.size(), 0,
                       reinterpret_cast<const sockaddr*>(&self), length),
              1000);
    ::close(sender);
    const auto after = loopback(host);
    ASSERT_TRUE(after);
    EXPECT_GE(after->outputBytes - before->outputBytes, 1000u);
    EXPECT_GE(after->inputBytes - before->inputBytes, 1000u);
}

TEST(RealHostTest, TheRunningKernelAnswers) {
    ProcHostStatistics host;
    const auto first = host.processorTicks();
    const auto memory = host.virtualMemory();
    ASSERT_TRUE(first && memory);
    EXPECT_GE(first->size(), 1u);
    EXPECT_GT(first->front().idle + first->front().user, 0u);
    EXPECT_GT(memory->activePages, 0u);
    EXPECT_LT(memory->activePages * host.pageSize(), host.physicalMemory());
    const auto second = host.processorTicks();
    ASSERT_TRUE(second);
    EXPECT_GE(second->front().idle, first->front().idle);
}

} // namespace
} // namespace orvelle
