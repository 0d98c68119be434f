// SPDX-License-Identifier: Apache-2.0
//
// A checked call of the server with the trace and the logs off: through the operation frame, and written out
// by hand.
#include <cstdint>
#include <utility>

#include <benchmark/benchmark.h>
#include <velrzm/result.h>

#include "bench/allocations.h"
#include "frame/object_request.h"

namespace {

/** Closes the access log to the library for the time of a measurement. */
class WithoutLog {
public:
    WithoutLog() noexcept : log_(std::exchange(QVL_Log_File, nullptr)) {}
    WithoutLog(const WithoutLog&) = delete;
    WithoutLog& operator=(const WithoutLog&) = delete;
    ~WithoutLog() { QVL_Log_File = log_; }

private:
    std::FILE* log_;
};

/** Measures `call` and how many allocations one call makes. */
template <class Call>
void measure(benchmark::State& state, const Call& call)
{
    const WithoutLog withoutLog;
    const std::int64_t before = bench::allocations();
    for ([[maybe_unused]] auto _ : state) {
        call();
    }
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(bench::allocations() - before),
                                                       benchmark::Counter::kAvgIterations);
}

void checkedCallByFrame(benchmark::State& state)
{
    velrzm::Operation operation("EngineeringChangeCreate");
    velrzm::CurrentObject object(operation);
    const char* value = "EC-100";
    measure(state, [&] {
        benchmark::DoNotOptimize(value);
        object.set({"id", value, "-   id="});
    });
}
BENCHMARK(checkedCallByFrame)->Name("checked call/frame");

void checkedCallByHand(benchmark::State& state)
{
    const char* value = "EC-100";
    bool stopped = false;
    measure(state, [&] {
        benchmark::DoNotOptimize(value);
        if (!stopped) {
            QV_RC = QV_Set_Object_Attr(QV_ObjPtr, "id", value);
            stopped = QV_RC < 0;
        }
    });
}
BENCHMARK(checkedCallByHand)->Name("checked call/by hand");

} // namespace
