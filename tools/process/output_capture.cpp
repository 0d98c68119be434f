// SPDX-License-Identifier: Apache-2.0
#include "tools/process/output_capture.h"

#include <cstdio>
#include <iostream>

#include <fcntl.h>
#include <unistd.h>

#include "tools/process/failures.h"
#include "tools/process/standard_streams.h"

namespace tools {

namespace {

void flushStandardOutput()
{
    std::cout.flush();
    std::fflush(stdout);
}

} // namespace

OutputCapture::OutputCapture() : saved_(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1))
{
    flushStandardOutput();
    if (saved_ == -1 || dup2(file_.descriptor(), STDOUT_FILENO) == -1) {
        throw Refused("the library's output cannot be caught: no file descriptors are left");
    }
}

OutputCapture::~OutputCapture()
{
    writeNote(end());
}

std::string OutputCapture::take()
{
    return end();
}

std::string OutputCapture::end()
{
    if (saved_ == -1) {
        return {};
    }
    flushStandardOutput();
    dup2(saved_, STDOUT_FILENO);
    close(saved_);
    saved_ = -1;
    return file_.text();
}

} // namespace tools
