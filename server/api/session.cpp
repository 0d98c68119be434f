// SPDX-License-Identifier: Apache-2.0
#include "server/api/session.h"

#include <exception>
#include <new>

#include <pthread.h>

#include "server/administration/password.h"
#include "server/administration/store_location.h"
#include "server/base/errors.h"

namespace qvserver {

namespace {

/** What a forked process inherited and must not close: that would take the locks and the log of the store from the
 * process that uses it. Kept here so that it does not count as leaked. */
struct Inherited {
    Transaction* multiSave = nullptr;
    Store* store = nullptr;
} inherited;

// Made when the library is loaded, so that it is still there when the destructors of a program's own static objects call.
Session ofProcess;

} // namespace

Session::~Session()
{
    if (isInherited_) {
        inherited = {multiSave_.release(), store_.release()};
    }
}

void Session::watchForks()
{
    static const bool isWatched =
        ::pthread_atfork(nullptr, nullptr, [] { session().isInherited_ = session().store_ != nullptr; }) == 0;
    if (!isWatched) {
        throw std::bad_alloc();
    }
}

void Session::closeEnvironment()
{
    if (!environmentOpen_) {
        fail(Failure::EnvironmentNotOpen, "the environment is not open");
    }
    logoff();
    environmentOpen_ = false;
}

void Session::logon(const std::string& user, const std::string& password)
{
    if (!environmentOpen_) {
        fail(Failure::EnvironmentNotOpen, "the environment is not open; open it before the logon");
    }
    if (store_ != nullptr) {
        fail(Failure::AlreadyLoggedOn, "the user ", inQuotes(user_), " is logged on; log off first");
    }
    watchForks();
    auto store = openStore(storeLocation());
    const bool accepted =
        store->isOpenToAll() ? !user.empty() : isPassword(password, store->passwordHash(user));
    if (!accepted) {
        fail(Failure::LogonRefused, "the logon of ", inQuotes(user),
             " was refused: wrong user or wrong password");
    }
    user_ = user;
    store_ = std::move(store);
}

void Session::logoff() noexcept
{
    multiSave_.reset();
    objects_.clear();
    lists_.clear();
    reports_.clear();
    translations_ = {};
    store_.reset();
    user_.clear();
}

void Session::checkLoggedOn() const
{
    if (store_ == nullptr) {
        fail(Failure::NotLoggedOn, "nobody is logged on; log on first");
    }
}

void Session::startMultiSave()
{
    if (multiSave_ != nullptr) {
        fail(Failure::MultiSaveState, "a multi-save is open already; commit or discard it first");
    }
    auto started = std::make_unique<Transaction>(*store_, Access::Write);
    lastNumber_ = store_->lastNumber();
    forEachObject([](Object& object) { object.multiSaveStarted(); });
    multiSave_ = std::move(started);
}

void Session::commitMultiSave()
{
    requireMultiSave("commit");
    const auto ended = std::move(multiSave_);
    try {
        ended->commit();
    } catch (const std::exception&) {
        forgetMultiSave();
        throw;
    }
}

void Session::discardMultiSave()
{
    requireMultiSave("discard");
    multiSave_.reset();
    forgetMultiSave();
}

template <typename Visit>
void Session::forEachObject(Visit visit)
{
    objects_.forEach([&visit](ObjectState& state) {
        if (auto* const object = std::get_if<Object>(&state)) {
            visit(*object);
        }
    });
}

void Session::forgetMultiSave() noexcept
{
    forEachObject([this](Object& object) { object.multiSaveDiscarded(lastNumber_); });
}

void Session::requireMultiSave(const char* action) const
{
    if (multiSave_ == nullptr) {
        fail(Failure::MultiSaveState, "there is no open multi-save to ", action, "; start one first");
    }
}

Object& Session::object(QV_ObjectHandle handle)
{
    auto* const object = std::get_if<Object>(&objects_.at(handle));
    if (object == nullptr) {
        fail(Failure::BadHandle,
             "a record of a list can only be read; create an object and open it by its db_object_id");
    }
    return *object;
}

Session& session() noexcept
{
    return ofProcess;
}

} // namespace qvserver
