// SPDX-License-Identifier: Apache-2.0
#include "tools/process/library_output.h"

#include <cstdlib>
#include <iostream>
#include <utility>

#include <velrzm/qv_sdk.h>
#include <velrzm/result.h>

#include "tools/process/environment.h"
#include "tools/process/failures.h"
#include "tools/process/standard_streams.h"

namespace tools {

namespace {

constexpr std::string_view failureMark = "****** ";
constexpr std::string_view warningMark = "****** WARNING ******";
constexpr int noSuchObject = -210; // the code of the local server

bool isTraceWanted()
{
    const std::string level = environmentText("QVL_TRACE_LEVEL");
    return !level.empty() &&
           std::strtol(level.c_str(), nullptr, 10) >= 0; // a word counts as 0 in the library
}

/** Takes the lines of the library one by one. */
class LineSorter : public std::streambuf {
public:
    /** The text of the last failure that was reported, once. */
    std::string takeFailure() { return std::exchange(failure_, {}); }

protected:
    int_type overflow(int_type unit) override
    {
        if (!traits_type::eq_int_type(unit, traits_type::eof())) {
            const char text = traits_type::to_char_type(unit);
            xsputn(&text, 1);
        }
        return traits_type::not_eof(unit);
    }

    std::streamsize xsputn(const char* text, std::streamsize size) override
    {
        line_.append(text, static_cast<std::size_t>(size));
        for (std::size_t end = 0; (end = line_.find('\n')) != std::string::npos; line_.erase(0, end + 1)) {
            sort(line_.substr(0, end));
        }
        return size;
    }

private:
    void sort(const std::string& line)
    {
        const bool isWarning = line.find(warningMark) != std::string::npos;
        if (!isWarning && line.compare(0, failureMark.size(), failureMark) == 0) {
            const std::size_t end = line.find_last_not_of(" ."); // the library ends the text with both
            failure_ = line.substr(failureMark.size(), end + 1 - failureMark.size());
        }
        if (isTraceWanted() || isWarning) {
            writeNote(line + "\n");
        }
    }

    std::string line_;
    std::string failure_;
};

LineSorter& lineSorter()
{
    static LineSorter sorter;
    return sorter;
}

std::string reason()
{
    std::string told = lineSorter().takeFailure(); // nothing below trace level 0
    if (told.empty() && QV_Error_Size() > 0) {
        told = QV_Error_MsgTxt(0);
    }
    return told.empty() ? "the server gives no reason" : told;
}

} // namespace

LibraryOutput::LibraryOutput() : previous_(std::cout.rdbuf(&lineSorter())) {}

LibraryOutput::~LibraryOutput()
{
    std::cout.rdbuf(previous_);
}

OutputCapture::OutputCapture() : previous_(std::cout.rdbuf(this)) {}

OutputCapture::~OutputCapture()
{
    end();
}

std::string OutputCapture::take()
{
    end();
    return str();
}

void OutputCapture::end()
{
    if (previous_ != nullptr) {
        std::cout.rdbuf(std::exchange(previous_, nullptr));
    }
}

void throwServerFailure(const std::string& what)
{
    const int code = QV_RC;
    if (code >= 0) {
        throw Refused(what + " failed");
    }
    const std::string text = what + ": " + reason() + " (code " + std::to_string(code) + ")";
    if (code == noSuchObject) {
        throw NothingFound(text);
    }
    throw Refused(text);
}

} // namespace tools
