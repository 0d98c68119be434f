// SPDX-License-Identifier: Apache-2.0
//
// The `velrzm` command.
#include <csignal>
#include <exception>
#include <string>

#include <velrzm/qvlocal.h>

#include "tools/command_line/command_line.h"
#include "tools/output/results.h"
#include "tools/output/terminal.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"
#include "tools/process/library_output.h"
#include "tools/process/session.h"
#include "tools/process/standard_streams.h"

namespace {

using tools::ExitStatus;

int complain(const std::string& text, ExitStatus status)
{
    const bool endsLine = !text.empty() && text.back() == '\n';
    tools::writeNote("velrzm: " + text + (endsLine ? "" : "\n"));
    return static_cast<int>(status);
}

int run(const std::vector<std::string>& arguments)
{
    const tools::SessionEnd sessionEnd;
    try {
        tools::CommandLine line;
        line.parse(arguments);
        line.act();
        return static_cast<int>(ExitStatus::Done);
    } catch (const tools::OutputClosed&) {
        return static_cast<int>(ExitStatus::Done); // whoever read the results has seen enough of them
    } catch (const tools::Interrupted& interruption) {
        const std::string outcome = interruption.outcome.empty() ? "" : "; " + interruption.outcome;
        return complain("interrupted" + outcome, ExitStatus::BySignal) + interruption.signal;
    } catch (const tools::Failure& failure) {
        return complain(failure.what(), failure.status());
    } catch (const std::exception& error) { // qvlocal::StoreError, and what nobody expects
        return complain(error.what(), ExitStatus::Refused);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        tools::separateResults();
        const tools::LibraryOutput libraryOutput;
        tools::noteInterruptions();
        tools::inspectTerminal();
        return run(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
    } catch (const std::exception& error) {
        return complain(error.what(), ExitStatus::Refused);
    }
}
