#include "Platform/Linux/HwmonSMCService.h"
#include "Platform/Linux/ProcHostStatistics.h"
#include "Platform/Linux/SysfsPowerSupply.h"

#include <benchmark/benchmark.h>

namespace {

using namespace orvelle;

void processorTicks(benchmark::State& state) {
    ProcHostStatistics host;
    for (auto _ : state)
        benchmark::DoNotOptimize(host.processorTicks());
}
BENCHMARK(processorTicks);

void virtualMemory(benchmark::State& state) {
    ProcHostStatistics host;
    for (auto _ : state)
        benchmark::DoNotOptimize(host.virtualMemory());
}
BENCHMARK(virtualMemory);

void interfaces(benchmark::State& state) {
    ProcHostStatistics host;
    for (auto _ : state)
        benchmark::DoNotOptimize(host.interfaces());
}
BENCHMARK(interfaces);

/// All that the system monitor reads every 2 s.
void systemSample(benchmark::State& state) {
    ProcHostStatistics host;
    HwmonSMCService smc;
    for (auto _ : state) {
        benchmark::DoNotOptimize(host.processorTicks());
        benchmark::DoNotOptimize(host.virtualMemory());
        benchmark::DoNotOptimize(host.interfaces());
        benchmark::DoNotOptimize(smc.open());
    }
}
BENCHMARK(systemSample);

void powerSupplyFiles(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(SysfsPowerSupply::read("/sys/class/power_supply"));
}
BENCHMARK(powerSupplyFiles);

} // namespace
