// SPDX-License-Identifier: Apache-2.0
#include "tools/process/local_server.h"

#include <dlfcn.h>

#include <velrzm/qv_sdk.h>
#include <velrzm/qvlocal.h>

#include "tools/process/environment.h"

namespace tools {

namespace {

/** Where the shared library that holds `address` is loaded. */
const void* libraryOf(const void* address)
{
    Dl_info info = {};
    return address != nullptr && dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

} // namespace

bool localServerServes()
{
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): a function's address, only compared
    const void* const administration = reinterpret_cast<const void*>(&qvlocal::currentStore);
    const void* const server = libraryOf(dlsym(RTLD_DEFAULT, "QV_Logon"));
    return server != nullptr && server == libraryOf(administration);
}

bool storeIsInMemory()
{
    return environmentText("QV_STORE") == "sqlite::memory:";
}

} // namespace tools
