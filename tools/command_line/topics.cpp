// SPDX-License-Identifier: Apache-2.0
#include "tools/command_line/topics.h"

namespace tools {

const std::vector<Topic>& environmentVariables()
{
    static const std::vector<Topic> topics = {
        {"QV_STORE",
         "Store of the local server: sqlite:FILE, or sqlite::memory: for one that ends with the program. "
         "Unset: velrzm/store.db in the user's data directory. --store takes its place."},
        {"VELRZM_PASSWORD", "Password of the user, instead of --password-file and of the prompt."},
        {"USER", "User who logs on; --user takes its place. Also the initiator of an engineering change for "
                 "which none is given."},
        {"QVL_TRACE_LEVEL", "Trace level of the library; --trace takes its place."},
        {"QVL_LOG_FILE", "Access log to which every call of the server is added. Unset: none is kept."},
        {"QVL_LOG_ERROR", "File for all errors. Unset: QVL_LOG_ERROR in the user's state directory, "
                          "~/.local/state/velrzm."},
        {"QVL_LAST_ERROR", "File for the last error. Unset: QVL_LAST_ERROR in the same directory."},
        {"RZM_DEFAULT_DIRECTORY", "Directory of the shared defaults file. Unset: the working directory."},
        {"QV_MULTI_SAVE",
         "0 or OFF: programs that use the library save each object at once. \"velrzm import\" and \"velrzm "
         "batch --multi-save\" store everything or nothing in any case."},
        {"QVL_BOM_HEADER_CREATE", "YES: \"velrzm item create\" makes a bill-of-material header as well."},
        {"PAGER", "Pager for results that are longer than the terminal; empty or cat: none. Unset: less. "
                  "Where "
                  "LESS is unset, it is set to FRX."},
        {"NO_COLOR", "When set, nothing is coloured."},
    };
    return topics;
}

const std::vector<Topic>& files()
{
    static const std::vector<Topic> topics = {
        {"QVL_RZM_DEFAULT", "Defaults that a site gives the attributes of new objects."},
        {"My_QVL_RZM_DEFAULT", "Those of the user, in the working directory; they win."},
        {"$XDG_DATA_HOME/velrzm/store.db",
         "The user's own store; ~/.local/share stands for an unset $XDG_DATA_HOME."},
    };
    return topics;
}

const std::vector<Topic>& exitStatuses()
{
    static const std::vector<Topic> topics = {
        {"0", "Done."},
        {"1", "Nothing was found: no record, or no object of that number or identifier."},
        {"2", "Wrong usage."},
        {"3", "Refused by the server, or failed; or \"velrzm doctor\" or \"velrzm defaults check\" found a "
              "problem."},
        {"128+N", "Ended by the signal N."},
    };
    return topics;
}

} // namespace tools
