// SPDX-License-Identifier: Apache-2.0
#include "diagnostics/access_log.h"

#include "diagnostics/guard.h"
#include "diagnostics/log_files.h"

std::FILE* QVL_Log_File = nullptr;
int QVL_Log_FirstTime = 1;

namespace velrzm {

void writeToAccessLog(std::initializer_list<Piece> pieces)
{
    writeAtOnce(QVL_Log_File, Line(pieces, " ", "\n"));
}

} // namespace velrzm

namespace {

template <class... Texts>
void writeLine(const Texts*... texts)
{
    velrzm::guardedWriting("QVL_Log", [=] { velrzm::accessLog(texts...); });
}

} // namespace

void QVL_Log(char* s1)
{
    writeLine(s1);
}
void QVL_Log(char* s1, char* s2)
{
    writeLine(s1, s2);
}
void QVL_Log(char* s1, char* s2, char* s3)
{
    writeLine(s1, s2, s3);
}
void QVL_Log(char* s1, char* s2, char* s3, char* s4)
{
    writeLine(s1, s2, s3, s4);
}
void QVL_Log(char* s1, char* s2, char* s3, char* s4, char* s5)
{
    writeLine(s1, s2, s3, s4, s5);
}
void QVL_Log(char* s1, char* s2, char* s3, char* s4, char* s5, char* s6)
{
    writeLine(s1, s2, s3, s4, s5, s6);
}
