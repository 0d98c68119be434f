// SPDX-License-Identifier: Apache-2.0
#include "server/api/guard.h"

using qvserver::destroy;
using qvserver::ExplosionReport;
using qvserver::fail;
using qvserver::Failure;
using qvserver::guard;
using qvserver::inQuotes;
using qvserver::List;
using qvserver::requireText;
using qvserver::requireVariable;
using qvserver::Session;

extern "C" {

int QV_Create_Report(QV_ReportHandle* report, const char* className, const char* reportName)
{
    return guard([=](Session& session) {
        QV_ReportHandle& created = requireVariable(report, "report handle");
        const auto reportClass = requireText(className, "class name");
        const auto name = requireText(reportName, "report name");
        if (reportClass != ExplosionReport::className || name != ExplosionReport::reportName) {
            fail(Failure::BadArgument, "there is no report ", inQuotes(name), " of the class ",
                 inQuotes(reportClass), "; there is ", ExplosionReport::reportName, " of ",
                 ExplosionReport::className);
        }
        created = session.reports().insert(ExplosionReport());
    });
}

int QV_Destroy_Report(QV_ReportHandle* report)
{
    return guard([=](Session& session) { destroy(session.reports(), report); });
}

int QV_Set_Report_Attr(QV_ReportHandle report, const char* name, const char* value)
{
    return guard([=](Session& session) {
        session.reports().at(report).set(requireText(name, "parameter name"),
                                         requireText(value, "parameter value"));
    });
}

int QV_Subscribe_Report_Attr(QV_ReportHandle report, const char* path)
{
    return guard([=](Session& session) {
        session.reports().at(report).subscribe(requireText(path, "attribute path"));
    });
}

int QV_Generate_Report(QV_ReportHandle report, QV_ListHandle* list)
{
    return guard([=](Session& session) {
        QV_ListHandle& result = requireVariable(list, "list handle");
        result = session.lists().insert(List(session.reports().at(report).generate(session.store())));
    });
}

} // extern "C"
