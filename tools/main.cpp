// SPDX-License-Identifier: Apache-2.0
//
// The `velrzm` command.
#include <csignal>
#include <exception>
#include <string>

#include <velrzm/qvlocal.h>

#include "tools/command_line/command_line.h"
#include "tools/output/terminal.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"
#include "tools/process/session.h"
#include "tools/process/standard_streams.h"

namespace {

// Exit status
constexpr int done = 0;
constexpr int refused = 1;
constexpr int wrongUsage = 2;
constexpr int bySignal = 128; // and the number of the signal, as shells have it

int complain(const std::string& text, int status)
{
    const bool endsLine = !text.empty() && text.back() == '\n';
    tools::writeNote("velrzm: " + text + (endsLine ? "" : "\n"));
    return status;
}

int run(const std::vector<std::string>& arguments)
{
    const tools::SessionEnd sessionEnd;
    try {
        tools::CommandLine line;
        line.parse(arguments);
        line.act();
        return done;
    } catch (const tools::OutputClosed&) {
        return done; // whoever read the results has seen enough of them
    } catch (const tools::Interrupted& interruption) {
        return bySignal + interruption.signal;
    } catch (const tools::WrongUsage& error) {
        return complain(error.what(), wrongUsage);
    } catch (const std::exception& error) { // tools::Refused, qvlocal::StoreError, and what nobody expects
        return complain(error.what(), refused);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        tools::separateResults();
        tools::noteInterruptions();
        tools::inspectTerminal();
        return run(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
    } catch (const std::exception& error) {
        return complain(error.what(), refused);
    }
}
