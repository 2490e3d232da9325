#include "Features/SystemMonitor/SystemMonitorManager.h"

#include "Platform/Simulated/SimulatedPlatform.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <utility>

using namespace orvelle;

namespace {

using NetworkBytes = SystemMonitorManager::NetworkBytes;

InterfaceEntry interface(std::string name, std::uint32_t output, std::uint32_t input) {
    return {std::move(name), InterfaceEntry::Counters{output, input}};
}

class SystemMonitorManagerTest : public testing::Test {
protected:
    SystemMonitorManagerTest() {
        host.ticks = {{{1000, 1000, 1000, 1000}}};
        host.network = {{interface("en0", 5000, 7000)}};
    }

    const SystemMetrics& metrics() const { return manager.metrics.get(); }
    /// Starts, then lets the counters become these, one period later.
    void sampleNetwork(std::vector<InterfaceEntry> later) {
        manager.start();
        host.network = std::move(later);
        runLoop.advance(2);
    }
    double cpuAfter(const ProcessorTicks& later) {
        manager.start();
        host.ticks = {{later}};
        runLoop.advance(2);
        return metrics().cpuUsage;
    }

    SimulatedPlatform platform;
    SimulatedHostStatistics& host = platform.hostStatisticsPort;
    SimulatedRunLoop& runLoop = platform.runLoopPort;
    SystemMonitorManager manager{platform};
};

} // namespace

TEST_F(SystemMonitorManagerTest, A100User100System700Idle100NiceTicksGive20Percent) {
    EXPECT_DOUBLE_EQ(cpuAfter({1100, 1100, 1700, 1100}), 20);
    EXPECT_EQ(manager.previousCPUInfo, (ProcessorTicks{1100, 1100, 1700, 1100}));
}

TEST_F(SystemMonitorManagerTest, AnIdenticalSecondReadGives0PercentAndKeepsTheBaseline) {
    manager.start();
    EXPECT_EQ(metrics().cpuUsage, 0);
    EXPECT_EQ(manager.previousCPUInfo, (ProcessorTicks{1000, 1000, 1000, 1000}));
    runLoop.advance(2);
    EXPECT_EQ(metrics().cpuUsage, 0);
    EXPECT_EQ(manager.previousCPUInfo, (ProcessorTicks{1000, 1000, 1000, 1000}));
}

TEST_F(SystemMonitorManagerTest, OnlyLoopbackTunnelAndEthernetNamesAreCounted) {
    host.network = {{interface("en0", 1, 10), interface("lo", 2, 20), interface("utun3", 4, 40),
                     interface("awdl0", 8, 80), interface("bridge0", 16, 160),
                     interface("tun0", 32, 320), interface("ben0", 64, 640),
                     interface("e", 128, 1280)}};
    manager.start();
    EXPECT_EQ(manager.previousNetworkBytes, (NetworkBytes{7, 70}));
}

TEST_F(SystemMonitorManagerTest, AFallenUploadCountGives0WhileDownloadIsStillComputed) {
    sampleNetwork({interface("en0", 4000, 7300)});
    EXPECT_EQ(metrics().networkUpload, 0u);
    EXPECT_EQ(metrics().networkDownload, 150u);
}

TEST_F(SystemMonitorManagerTest, AWrapOf32BitsGives0OnceAndThenCountsAgain) {
    host.network = {{interface("en0", std::numeric_limits<std::uint32_t>::max(), 7000)}};
    sampleNetwork({interface("en0", 99, 7000)});
    EXPECT_EQ(metrics().networkUpload, 0u);
    host.network = {{interface("en0", 299, 7000)}};
    runLoop.advance(2);
    EXPECT_EQ(metrics().networkUpload, 100u);
}

TEST_F(SystemMonitorManagerTest, AnInterfaceThatGoesAwayGives0ForBoth) {
    host.network = {{interface("en0", 5000, 7000), interface("en1", 5000, 7000)}};
    sampleNetwork({interface("en0", 5100, 7100)});
    EXPECT_EQ(metrics().networkUpload, 0u);
    EXPECT_EQ(metrics().networkDownload, 0u);
    EXPECT_EQ(manager.previousNetworkBytes, (NetworkBytes{5100, 7100}));
}

TEST_F(SystemMonitorManagerTest, CountersOf32BitsAreSummedInto64) {
    constexpr auto most = std::numeric_limits<std::uint32_t>::max();
    host.network = {{interface("en0", most, most), interface("en1", most, most)}};
    manager.start();
    EXPECT_EQ(manager.previousNetworkBytes, (NetworkBytes{2ULL * most, 2ULL * most}));
}

TEST_F(SystemMonitorManagerTest, EachEntryWithCountersIsAddedWhateverItsAddress) {
    host.network = {{interface("en0", 1, 10), interface("en0", 2, 20), {"en0", std::nullopt}}};
    manager.start();
    EXPECT_EQ(manager.previousNetworkBytes, (NetworkBytes{3, 30}));
}

TEST_F(SystemMonitorManagerTest, AnEmptyOrUnreadableInterfaceListIsZeroBytes) {
    host.network.emplace();
    manager.start();
    EXPECT_EQ(manager.previousNetworkBytes, (NetworkBytes{0, 0}));
    host.network.reset();
    runLoop.advance(2);
    EXPECT_EQ(manager.previousNetworkBytes, (NetworkBytes{0, 0}));
    EXPECT_EQ(metrics().networkUpload, 0u);
}

TEST_F(SystemMonitorManagerTest, RatesAreBytesPerSecondCutToWholeNumbers) {
    sampleNetwork({interface("en0", 5003, 7005)});
    EXPECT_EQ(metrics().networkUpload, 1u);
    EXPECT_EQ(metrics().networkDownload, 2u);
}

TEST_F(SystemMonitorManagerTest, RatesUseTheTimeThatReallyPassed) {
    manager.start();
    host.network = {{interface("en0", 6000, 7000)}};
    runLoop.setNow(runLoop.now() + 8);
    runLoop.advance(2);
    EXPECT_EQ(metrics().networkUpload, 100u);
}

TEST_F(SystemMonitorManagerTest, AClockThatWasSetBackGives0AndBeginsAnew) {
    manager.start();
    host.network = {{interface("en0", 6000, 8000)}};
    runLoop.setNow(runLoop.now() + -3600);
    runLoop.advance(2);
    EXPECT_EQ(metrics().networkUpload, 0u);
    EXPECT_EQ(manager.previousNetworkTimestamp, runLoop.now());
    host.network = {{interface("en0", 6200, 8000)}};
    runLoop.advance(2);
    EXPECT_EQ(metrics().networkUpload, 100u);
}

TEST_F(SystemMonitorManagerTest, WithoutABaselineTheFirstSampleOnlyStoresOne) {
    manager.updateMetrics();
    EXPECT_EQ(metrics().cpuUsage, 0);
    EXPECT_EQ(metrics().networkUpload, 0u);
    EXPECT_EQ(manager.previousCPUInfo, (ProcessorTicks{1000, 1000, 1000, 1000}));
    EXPECT_EQ(manager.previousNetworkBytes, (NetworkBytes{5000, 7000}));
    EXPECT_EQ(manager.previousNetworkTimestamp, runLoop.now());
}

TEST_F(SystemMonitorManagerTest, TicksAreSummedOverAllProcessors) {
    host.ticks = {{{1, 20, 300, 4000}, {2, 30, 400, 5000}}};
    manager.start();
    EXPECT_EQ(manager.previousCPUInfo, (ProcessorTicks{3, 50, 700, 9000}));
}

TEST_F(SystemMonitorManagerTest, NiceTimeCountsTowardsTheTotalButNotAsBusy) {
    EXPECT_DOUBLE_EQ(cpuAfter({1000, 1000, 1000, 1100}), 0);
    EXPECT_DOUBLE_EQ(cpuAfter({1100, 1100, 1000, 1100}), 100);
}

TEST_F(SystemMonitorManagerTest, ALostCPUReadingGives0AndTheNextOneOnlyABaseline) {
    manager.start();
    host.ticks.reset();
    runLoop.advance(2);
    EXPECT_EQ(metrics().cpuUsage, 0);
    EXPECT_FALSE(manager.previousCPUInfo);
    host.ticks = {{{1100, 1000, 1000, 1000}}};
    runLoop.advance(2);
    EXPECT_EQ(metrics().cpuUsage, 0);
    host.ticks = {{{1150, 1000, 1050, 1000}}};
    runLoop.advance(2);
    EXPECT_DOUBLE_EQ(metrics().cpuUsage, 50);
}

TEST_F(SystemMonitorManagerTest, AnEmptyProcessorListIsALostReading) {
    host.ticks.emplace();
    manager.start();
    EXPECT_FALSE(manager.previousCPUInfo);
    EXPECT_EQ(metrics().cpuUsage, 0);
}

TEST_F(SystemMonitorManagerTest, AProcessorThatIsTakenAwayGives0AndBeginsAnew) {
    EXPECT_EQ(cpuAfter({1100, 900, 1700, 1100}), 0);
    host.ticks = {{{1150, 900, 1750, 1100}}};
    runLoop.advance(2);
    EXPECT_DOUBLE_EQ(metrics().cpuUsage, 50);
}

TEST_F(SystemMonitorManagerTest, UsedMemoryIsActiveWiredAndCompressedPages) {
    host.physical = 4096 * 100;
    host.memory = {10, 20, 30};
    manager.start();
    EXPECT_EQ(metrics().memoryTotal, 409600u);
    EXPECT_EQ(metrics().memoryUsed, 245760u);
    EXPECT_DOUBLE_EQ(metrics().memoryUsage, 60);
}

TEST_F(SystemMonitorManagerTest, UnreadableMemoryStatisticsKeepTheTotalAlone) {
    host.physical = 409600;
    manager.start();
    EXPECT_EQ(metrics().memoryTotal, 409600u);
    EXPECT_EQ(metrics().memoryUsed, 0u);
    EXPECT_EQ(metrics().memoryUsage, 0);
}

TEST_F(SystemMonitorManagerTest, AnUnknownAmountOfMemoryIsNotDividedBy) {
    host.physical = 0;
    host.memory = {10, 20, 30};
    manager.start();
    EXPECT_EQ(metrics().memoryUsage, 0);
    EXPECT_EQ(metrics().memoryTotal, 0u);
}

TEST_F(SystemMonitorManagerTest, TheTemperatureIsReadWithEachSampleAndMayBeMissing) {
    platform.smcPort.values["TC0P"] = {"sp78", {0x2E, 0x80}};
    manager.start();
    EXPECT_EQ(metrics().cpuTemperature, 46.5);
    EXPECT_EQ(platform.smcPort.openConnections, 0);
    platform.smcPort.present = false;
    runLoop.advance(2);
    EXPECT_EQ(metrics().cpuTemperature, std::nullopt);
}

TEST_F(SystemMonitorManagerTest, ASampleIsPublishedOnceAndStamped) {
    host.memory = {10, 20, 30};
    manager.start();
    host.ticks = {{{1100, 1100, 1700, 1100}}};
    host.network = {{interface("en0", 5200, 7400)}};
    std::vector<SystemMetrics> published;
    const auto subscription =
        manager.metrics.observe([&](const SystemMetrics& value) { published.push_back(value); });
    runLoop.advance(2);
    ASSERT_EQ(published.size(), 2u);
    EXPECT_DOUBLE_EQ(published[1].cpuUsage, 20);
    EXPECT_EQ(published[1].networkUpload, 100u);
    EXPECT_EQ(published[1].networkDownload, 200u);
    EXPECT_EQ(published[1].memoryUsed, 245760u);
    EXPECT_EQ(published[1].lastUpdated, runLoop.now());
    EXPECT_EQ(published[1].diskUsage, 0);
}

TEST_F(SystemMonitorManagerTest, IsEmptyAndStampedBeforeTheStart) {
    SystemMetrics empty;
    empty.lastUpdated = runLoop.now();
    EXPECT_EQ(metrics(), empty);
    EXPECT_TRUE(manager.isEnabled);
    EXPECT_FALSE(manager.previousCPUInfo);
    EXPECT_FALSE(manager.previousNetworkBytes);
    EXPECT_FALSE(manager.previousNetworkTimestamp);
    EXPECT_EQ(host.readCount, 0);
    EXPECT_EQ(runLoop.timerCount(), 0u);
}

TEST_F(SystemMonitorManagerTest, StartSamplesAtOnceAndThenEvery2Seconds) {
    manager.start();
    EXPECT_EQ(platform.smcPort.openCount, 1);
    runLoop.advance(1.9);
    EXPECT_EQ(platform.smcPort.openCount, 1);
    runLoop.advance(0.1);
    EXPECT_EQ(platform.smcPort.openCount, 2);
    runLoop.advance(8);
    EXPECT_EQ(platform.smcPort.openCount, 6);
}

TEST_F(SystemMonitorManagerTest, StartWhileSwitchedOffReadsAndSchedulesNothing) {
    manager.isEnabled = false;
    manager.start();
    runLoop.advance(10);
    EXPECT_EQ(host.readCount, 0);
    EXPECT_EQ(platform.smcPort.openCount, 0);
    EXPECT_EQ(runLoop.timerCount(), 0u);
    EXPECT_FALSE(manager.previousNetworkTimestamp);
}

TEST_F(SystemMonitorManagerTest, ASecondStartReplacesTheTimerAndSeedsAfresh) {
    manager.start();
    host.ticks = {{{2000, 2000, 2000, 2000}}};
    manager.start();
    EXPECT_EQ(metrics().cpuUsage, 0);
    EXPECT_EQ(manager.previousCPUInfo, (ProcessorTicks{2000, 2000, 2000, 2000}));
    EXPECT_EQ(runLoop.timerCount(), 1u);
}

TEST_F(SystemMonitorManagerTest, AfterAStopTheNextStartCountsFromItsOwnBaseline) {
    manager.start();
    manager.updateTimer.reset();
    manager.previousCPUInfo.reset();
    manager.previousNetworkBytes.reset();
    host.network = {{interface("en0", 905000, 907000)}};
    runLoop.advance(100);
    EXPECT_EQ(platform.smcPort.openCount, 1);

    manager.start();
    EXPECT_EQ(metrics().networkUpload, 0u);
    host.network = {{interface("en0", 905200, 907400)}};
    runLoop.advance(2);
    EXPECT_EQ(metrics().networkUpload, 100u);
    EXPECT_EQ(metrics().networkDownload, 200u);
}

TEST(SystemMonitorManager, TheTimerEndsWithTheManager) {
    SimulatedPlatform platform;
    std::optional<SystemMonitorManager> manager(std::in_place, platform);
    manager->start();
    manager.reset();
    platform.runLoopPort.advance(10);
    EXPECT_EQ(platform.smcPort.openCount, 1);
}

TEST_F(SystemMonitorManagerTest, OneCounterThatFallsMakesTheWholeReadingANewBaseline) {
    for (const auto fallen : {&ProcessorTicks::user, &ProcessorTicks::system, &ProcessorTicks::idle,
                              &ProcessorTicks::nice}) {
        host.ticks = {{{1000, 1000, 1000, 1000}}};
        manager.start();
        ProcessorTicks later{1100, 1100, 1100, 1100};
        later.*fallen = 900;
        host.ticks = {{later}};
        manager.updateMetrics();
        EXPECT_EQ(metrics().cpuUsage, 0);
        EXPECT_EQ(manager.previousCPUInfo, later);
    }
}

TEST_F(SystemMonitorManagerTest, ACounterThatStandsStillIsNoFall) {
    const std::pair<ProcessorTicks, double> rows[] = {{{1000, 1100, 1100, 1100}, 100 / 3.0},
                                                      {{1100, 1000, 1100, 1100}, 100 / 3.0},
                                                      {{1100, 1100, 1000, 1100}, 200 / 3.0},
                                                      {{1100, 1100, 1100, 1000}, 200 / 3.0}};
    for (const auto& [later, percent] : rows) {
        host.ticks = {{{1000, 1000, 1000, 1000}}};
        EXPECT_DOUBLE_EQ(cpuAfter(later), percent);
    }
}

TEST_F(SystemMonitorManagerTest, ASampleTakenEarlyCountsByTheTimeThatPassed) {
    manager.start();
    runLoop.setNow(runLoop.now() + 0.5);
    host.network = {{interface("en0", 5100, 6000)}};
    manager.updateMetrics();
    EXPECT_EQ(metrics().networkUpload, 200u);
    EXPECT_EQ(metrics().networkDownload, 0u) << "the count has fallen";
}
