// SPDX-License-Identifier: Apache-2.0
//
// A server that does nothing, so that only the library's own work is measured. It stands in a file of its
// own, where the compiler cannot see through it.
#include <velrzm/qv_sdk.h>

int QV_Open_Env()
{
    return 0;
}
int QV_Close_Env()
{
    return 0;
}
int QV_Logon(const char* /*user*/, const char* /*password*/, char* /*reserved1*/, char* /*reserved2*/)
{
    return 0;
}
int QV_Logoff()
{
    return 0;
}
int QV_Set_Object_Attr(QV_ObjectHandle /*object*/, const char* /*path*/, const char* /*value*/)
{
    return 0;
}
