// SPDX-License-Identifier: Apache-2.0
#include "tools/output_capture.h"

#include <array>
#include <cstdio>
#include <iostream>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "tools/failures.h"
#include "tools/standard_streams.h"

namespace tools {

namespace {

void flushStandardOutput()
{
    std::cout.flush();
    std::fflush(stdout);
}

std::string contents(int file)
{
    std::string text;
    std::array<char, 4096> piece{};
    lseek(file, 0, SEEK_SET);
    ssize_t length = 0;
    while ((length = read(file, piece.data(), piece.size())) > 0) {
        text.append(piece.data(), static_cast<std::size_t>(length));
    }
    return text;
}

} // namespace

OutputCapture::OutputCapture()
    : file_(memfd_create("trace", MFD_CLOEXEC)),
      saved_(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1))
{
    flushStandardOutput();
    if (file_ == -1 || saved_ == -1 || dup2(file_, STDOUT_FILENO) == -1) {
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
    std::string text = contents(file_);
    close(saved_);
    close(file_);
    saved_ = -1;
    return text;
}

} // namespace tools
