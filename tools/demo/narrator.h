// SPDX-License-Identifier: Apache-2.0
//
// Tells the demonstration: numbered steps, what the library itself writes, outcomes, tables and files.
#ifndef VELRZM_TOOLS_DEMO_NARRATOR_H
#define VELRZM_TOOLS_DEMO_NARRATOR_H

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/output/records.h"
#include "tools/process/library_output.h"
#include "tools/structure/product_structure.h"

namespace tools::demo {

/** Writes the parts of the demonstration, one below the other. */
class Narrator {
public:
    /** The heading of everything. */
    void title(std::string_view text, std::string_view explanation) const;

    /** Begins a step: what happens, and the functions that do it. */
    void step(std::string_view what, std::string_view functions);

    /** Calls an operation, shows what the library writes meanwhile, and returns what it returned. */
    template <typename Operation>
    int call(Operation operation) const
    {
        OutputCapture capture;
        const int result = operation();
        libraryOutput(capture.take());
        return result;
    }

    /** The outcome of a step: success, or the refusal that the step is there to show. */
    void good(std::string_view text) const { outcome(text, true); }
    void bad(std::string_view text) const { outcome(text, false); }

    /** A plain line. */
    void line(std::string_view text) const;
    void table(const Records& records) const;
    void tree(const ProductStructure& structure) const;
    /** The lines of a text, shown as they are. */
    void quote(std::string_view text) const;
    /** A file: its first and last lines, and how many are left out between them. */
    void file(const char* path, std::size_t firstLines, std::size_t lastLines) const;

private:
    void libraryOutput(const std::string& text) const { quote(text); }
    void outcome(std::string_view text, bool good) const;

    int step_ = 0;
};

} // namespace tools::demo

#endif
