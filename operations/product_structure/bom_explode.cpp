// SPDX-License-Identifier: Apache-2.0
#include <velrzm/product_structure.h>

#include "frame/list_request.h"

using namespace velrzm;

namespace {

constexpr const char* reportClass = "IndentedRetrievalStrmElm";
constexpr const char* reportName = "ExplosionRetrieval";

} // namespace

int BomExplode(char** parameterNames, char** parameterValues, char** attributeNames)
{
    const AttributeNames selected(attributeNames);
    const Pairs parameters(parameterNames, parameterValues);
    return listOperation("BomExplode", [&](Operation& op, CurrentList& list) {
        op.start();
        op.trace("Printing Explosion Parameters ...");
        for (const Pair parameter : parameters) {
            op.trace("   ", parameter.name, "=", parameter.value, "-");
        }
        op.traceNames("Printing Selected Attributes ...", "   ", selected);
        list.reset();
        op.capture(selected, 50);
        DestroyListOrReport();
        op.call({"QV_Create_Report", reportClass, reportName},
                [] { return QV_Create_Report(&QV_RepPtr, reportClass, reportName); });
        const auto setParameter = [&op](const char* name, const char* value) {
            op.call({"QV_Set_Report_Attr", name, value},
                    [=] { return QV_Set_Report_Attr(QV_RepPtr, name, value); });
        };
        for (const Pair parameter : parameters) {
            setParameter(parameter.name, orEmpty(parameter.value));
        }
        setParameter("itm_doc_str", "*");
        for (const char* const name : selected) {
            op.call({"QV_Subscribe_Report_Attr", name},
                    [=] { return QV_Subscribe_Report_Attr(QV_RepPtr, name); });
        }
        op.call({"QV_Generate_Report"}, [] { return QV_Generate_Report(QV_RepPtr, &QV_ListPtr); });
        list.count();
        op.trace("-----Exit-----------entries/rc=", entries, "-------");
    });
}
