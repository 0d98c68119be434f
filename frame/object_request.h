// SPDX-License-Identifier: Apache-2.0
//
// The steps of operations on one object: create it, set attributes, subscribe others, open, save or delete it.
#ifndef VELRZM_FRAME_OBJECT_REQUEST_H
#define VELRZM_FRAME_OBJECT_REQUEST_H

#include <initializer_list>

#include "frame/operation.h"

namespace velrzm {

/** The trace line before a step: text, value and closing mark. Without a text there is no line. */
struct Label {
    // NOLINTNEXTLINE(google-explicit-constructor): in the tables of steps most labels are their text alone
    Label(const char* labelText = nullptr, const char* closingMark = "-") noexcept
        : text(labelText), closing(closingMark)
    {}

    const char* text;
    const char* closing;
};

/** Whether a report of a set attribute names its value. */
enum class Detail { Value, None };

/** An attribute to set: a row in an operation's table of steps. */
struct Setting {
    const char* name;
    const char* value;
    Label label = {};
    OnFailure onFailure = OnFailure::Stop;
    Detail detail = Detail::Value;
};

/** The steps of an operation on one object. */
class ObjectRequest {
public:
    /**
     * Steps of `operation` on the object in `handle`. `qualifier` precedes the names of the server functions in
     * reports, so that an operation on several objects can tell them apart.
     */
    ObjectRequest(Operation& operation, QV_ObjectHandle& handle, const char* qualifier = "") noexcept
        : operation_(operation), handle_(handle), qualifier_(qualifier)
    {}

    void create(const char* className);
    void set(const Setting& setting);
    void set(const char* name, const char* value) { set(Setting{name, value}); }
    /** Sets the rows of a table from top to bottom. */
    void set(std::initializer_list<Setting> settings);
    /** Sets the defaults, each after a trace line. */
    void setDefaults(const char* label, const Pairs& defaults);
    /** Sets those of the caller's pairs that have a value, each after a trace line. */
    void setGiven(const char* label, const Pairs& pairs);
    void subscribe(const char* name, OnFailure onFailure = OnFailure::Stop);
    void subscribe(const AttributeNames& names);
    void open(OnFailure onFailure = OnFailure::Stop);
    void save(OnFailure onFailure = OnFailure::Stop);
    void remove();

protected:
    Operation& operation() const noexcept { return operation_; }

private:
    template <class Function>
    void qualifiedCall(const char* function, const char* detail1, const char* detail2, OnFailure onFailure,
                       const Function& make);

    Operation& operation_;
    QV_ObjectHandle& handle_;
    const char* qualifier_;
};

/** The current object, as the result of an operation. */
class CurrentObject : public ObjectRequest {
public:
    explicit CurrentObject(Operation& operation) noexcept : ObjectRequest(operation, QV_ObjPtr) {}

    /** Makes the current result an object that is not counted yet. */
    void reset() noexcept;
    /** Destroys the previous current object and creates one of `className` in its place. */
    void renew(const char* className);
    /** Sets `entries` to 1 if the last call succeeded, else to 0; returns whether it did. */
    bool count() noexcept;
    /** The usual last trace line. */
    void exit(const char* text = "-----Exit------------entries/rc=") const;
};

/** Runs an exported operation whose result is the current object: `steps(operation, object)` are its steps. */
template <class Steps>
int objectOperation(const char* prefix, const Steps& steps)
{
    return runOperation(prefix, [&](Operation& operation) {
        CurrentObject object(operation);
        steps(operation, object);
    });
}

} // namespace velrzm

#endif
