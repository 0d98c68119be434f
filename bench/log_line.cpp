// SPDX-License-Identifier: Apache-2.0
//
// A line of the access log, and the bare write(2) of the same bytes to a file beside it.
#include <cstdio>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

#include <benchmark/benchmark.h>
#include <velrzm/velrzm.h>

#include "bench/log_folder.h"

namespace {

/** Empties a file that the measurement fills. */
void empty(int file)
{
    if (::ftruncate(file, 0) != 0 || ::lseek(file, 0, SEEK_SET) != 0) {
        std::perror("velrzm_bench: cannot empty a file of the measurement");
    }
}

/** Measures `line`, which writes to the access log. */
template <class Line>
void measureLog(benchmark::State& state, const Line& line)
{
    if (QVL_Log_File == nullptr) {
        state.SkipWithError("the access log is not open");
        return;
    }
    empty(::fileno(QVL_Log_File));
    for ([[maybe_unused]] auto _ : state) {
        line();
    }
}

void measureWrite(benchmark::State& state, std::string_view line)
{
    const std::string path = bench::logFolder() + "/bare";
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    for ([[maybe_unused]] auto _ : state) {
        if (::write(file, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
            state.SkipWithError("write failed");
            break;
        }
    }
    ::close(file);
}

char prefix[] = "EngineeringChangeCreate";
char numberLabel[] = "EcNumber=";
char number[] = "EC-100";
char nameLabel[] = "EcName=";
char name[] = "Stronger bracket";
char function[] = "QV_Set_Object_Attr";
char attribute[] = "id";

void inputLineByLog(benchmark::State& state)
{
    measureLog(state, [] { QVL_Log(prefix, numberLabel, number, nameLabel, name); });
}
BENCHMARK(inputLineByLog)->Name("input line/QVL_Log");

void inputLineByWrite(benchmark::State& state)
{
    measureWrite(state, "EngineeringChangeCreate EcNumber= EC-100 EcName= Stronger bracket\n");
}
BENCHMARK(inputLineByWrite)->Name("input line/write");

void callLineByLog(benchmark::State& state)
{
    QV_RC = 0;
    measureLog(state, [] { Process_QV_RC(prefix, function, attribute, number, 1); });
}
BENCHMARK(callLineByLog)->Name("call line/Process_QV_RC");

void callLineByWrite(benchmark::State& state)
{
    measureWrite(state, "EngineeringChangeCreate- rc(QV_Set_Object_Attr::id=EC-100) = 0\n");
}
BENCHMARK(callLineByWrite)->Name("call line/write");

} // namespace
