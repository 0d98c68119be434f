// SPDX-License-Identifier: Apache-2.0
#include "diagnostics/return_codes.h"

#include <exception>
#include <new>
#include <vector>

#include <velrzm/errors.h>

#include "diagnostics/access_log.h"
#include "diagnostics/guard.h"
#include "diagnostics/log_files.h"

namespace velrzm {
namespace {

constexpr std::size_t longestCallLine = 511; // in the access log

struct Message {
    std::string code;
    std::string text;
};

/** Must run before the next server call, which discards the messages of the failed one. */
std::vector<Message> serverMessages()
{
    std::vector<Message> messages;
    const int size = QV_Error_Size();
    for (int index = 0; index < size; ++index) {
        std::string code = orEmpty(QV_Error_MsgCode(index));
        messages.push_back({std::move(code), orEmpty(QV_Error_MsgTxt(index))});
    }
    return messages;
}

void writeCall(const char* prefix, const ServerCall& call)
{
    trace(CallLevel, prefix, " ", call.function, " ", call.detail1, " ", call.detail2, ": QV_RC=", QV_RC);
    if (QVL_Log_File != nullptr) {
        const bool first = given(call.detail1);
        const bool second = first && given(call.detail2);
        writeAtOnce(QVL_Log_File,
                    Line({prefix, "- rc(", call.function, first ? "::" : "", first ? call.detail1 : "",
                          second ? "=" : "", second ? call.detail2 : "", ") = ", QV_RC},
                         "", "\n", longestCallLine));
    }
}

void reportText(const char* prefix, const char* errorText)
{
    trace(ConnectionLevel, "****** ", errorText);
    DisplayError(prefix, errorText);
}

/** Of consecutive messages with the same code, only the first is reported. */
void reportFailure(const char* prefix, const std::vector<Message>& messages)
{
    std::string errorText;
    const Message* previous = nullptr;
    for (const Message& message : messages) {
        if (previous == nullptr || message.code != previous->code) {
            errorText.append(message.text).append(" ");
            accessLog(message.code, "-", message.text);
        }
        previous = &message;
    }
    reportText(prefix, errorText.c_str());
}

/** The text of the exception that is being handled. */
const char* reasonOfException() noexcept
{
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return "Memory has run out";
    } catch (const std::exception& exception) {
        return exception.what();
    } catch (...) {
        return "An exception of unknown type was thrown";
    }
}

} // namespace

void reportReturnCode(const char* prefix, const ServerCall& call)
{
    writeCall(prefix, call);
    if (QV_RC < 0) {
        reportFailure(prefix, serverMessages());
    }
}

void reportRefusal(const char* prefix, const ServerCall& call, const std::string& reason)
{
    QV_RC = -1;
    writeCall(prefix, call);
    reportFailure(prefix, {{"-1", reason}});
}

void reportException(const char* function) noexcept
{
    const BoundedText<512> errorText{reasonOfException(), " "};
    QV_RC = -1;
    writeCall(function, {""});
    accessLog("-1", "-", errorText.view());
    reportText(function, errorText.text());
}

} // namespace velrzm

int Process_QV_RC(char* prefix, char* functionName, char* detail1, char* detail2, int stopFlag)
{
    velrzm::guardedWriting("Process_QV_RC", [&] {
        velrzm::reportReturnCode(prefix, {functionName, detail1, detail2});
    });
    return QV_RC < 0 ? stopFlag : 0;
}
