// SPDX-License-Identifier: Apache-2.0
//
// The state of the client in this process: environment, user, store, handles, multi-save.
#ifndef VELRZM_SERVER_API_SESSION_H
#define VELRZM_SERVER_API_SESSION_H

#include <memory>
#include <string>
#include <variant>

#include <velrzm/qv_sdk.h>

#include "server/api/handles.h"
#include "server/objects/list.h"
#include "server/objects/object.h"
#include "server/objects/translation.h"
#include "server/store/store.h"
#include "server/structure/explosion.h"

namespace qvserver {

/** What an object handle stands for. */
using ObjectState = std::variant<Record, Object>;

class Session {
public:
    void openEnvironment() noexcept { environmentOpen_ = true; }
    /** Closes the environment; a user who is logged on is logged off. */
    void closeEnvironment();

    void logon(const std::string& user, const std::string& password);
    /** Drops an open multi-save and every handle. */
    void logoff() noexcept;
    void checkLoggedOn() const;

    const std::string& user() const noexcept { return user_; }
    Store& store() noexcept { return *store_; }

    void startMultiSave();
    void commitMultiSave();
    void discardMultiSave();

    HandleTable<QV_ObjectHandle, ObjectState, 1>& objects() noexcept { return objects_; }
    HandleTable<QV_ListHandle, List, 2>& lists() noexcept { return lists_; }
    HandleTable<QV_ReportHandle, ExplosionReport, 3>& reports() noexcept { return reports_; }
    TranslationTable& translations() noexcept { return translations_; }

    /** The object behind a handle that may be changed; a record of a list may not. */
    Object& object(QV_ObjectHandle handle);

private:
    void endMultiSave(const char* what);

    bool environmentOpen_ = false;
    std::string user_;
    std::unique_ptr<Store> store_; // of the user who is logged on
    std::unique_ptr<Transaction> multiSave_;
    HandleTable<QV_ObjectHandle, ObjectState, 1> objects_;
    HandleTable<QV_ListHandle, List, 2> lists_;
    HandleTable<QV_ReportHandle, ExplosionReport, 3> reports_;
    TranslationTable translations_; // the one read last
};

/** The session of this process. */
Session& session();

} // namespace qvserver

#endif
