// SPDX-License-Identifier: Apache-2.0
#include <velrzm/result.h>

#include "frame/operation.h"

QV_ObjectHandle QV_ObjPtr = nullptr;
QV_ListHandle QV_ListPtr = nullptr;
QV_ReportHandle QV_RepPtr = nullptr;
int QV_RC = 0;
char FromList[10] = "";
int entries = 0;
int LastRecNo = 0;
int LastAttNo = 0;
char SelectedAttribute[50][50] = {};
int NbSelectedAttribute = 0;

using namespace velrzm;

namespace {

void destroyListOrReport()
{
    Operation op("DestroyListOrReport");
    op.trace("-----Start-------");
    if (QV_RepPtr != nullptr) {
        op.call({"QV_Destroy_Report"}, [] { return QV_Destroy_Report(&QV_RepPtr); });
    }
    if (QV_ListPtr != nullptr) {
        op.call({"QV_Destroy_List"}, [] { return QV_Destroy_List(&QV_ListPtr); });
    }
    op.trace("-----Exit--------");
}

} // namespace

int DestroyListOrReport()
{
    guarded("DestroyListOrReport", destroyListOrReport, [] {});
    return 1;
}
