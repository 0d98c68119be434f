// SPDX-License-Identifier: Apache-2.0
//
// The state of the client in this process.
#ifndef VELRZM_SERVER_API_SESSION_H
#define VELRZM_SERVER_API_SESSION_H

#include <cstdint>
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

/**
 * The one session of a process: whether the environment is open, who is logged on, that user's store with its open
 * multi-save, and everything that handles stand for.
 */
class Session {
public:
    Session() = default;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    /** Whether this process was forked from the one that logged on, which alone may go on with the session. */
    bool isInherited() const noexcept { return isInherited_; }

    void openEnvironment() noexcept { environmentOpen_ = true; }
    /** Closes the environment; a user who is logged on is logged off. */
    void closeEnvironment();

    void logon(const std::string& user, const std::string& password);
    /** Discards an open multi-save and destroys every handle. */
    void logoff() noexcept;
    /** Fails when nobody is logged on. */
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

    /** The object behind a handle; fails for a record of a list, which can only be read. */
    Object& object(QV_ObjectHandle handle);

private:
    /** Has every process that is forked from now on know whether it inherited the session of a logon. */
    static void watchForks();
    /** Fails when there is no multi-save that could be ended by `action`. */
    void requireMultiSave(const char* action) const;
    /** Calls `visit(object)` for every object behind a handle. */
    template <typename Visit>
    void forEachObject(Visit visit);
    /** Has all objects forget what was stored in the multi-save that was discarded. */
    void forgetMultiSave() noexcept;

    bool environmentOpen_ = false;
    std::string user_;
    std::unique_ptr<Store> store_; // null when nobody is logged on
    bool isInherited_ = false;
    std::unique_ptr<Transaction> multiSave_;
    std::int64_t lastNumber_ = 0; // that was used before the multi-save
    HandleTable<QV_ObjectHandle, ObjectState, 1> objects_;
    HandleTable<QV_ListHandle, List, 2> lists_;
    HandleTable<QV_ReportHandle, ExplosionReport, 3> reports_;
    TranslationTable translations_; // the one read last
};

/** The session of this process. */
Session& session() noexcept;

} // namespace qvserver

#endif
