// SPDX-License-Identifier: Apache-2.0
#include "frame/object_request.h"

namespace velrzm {

template <class Function>
void ObjectRequest::qualifiedCall(const char* function, const char* detail1, const char* detail2,
                                  OnFailure onFailure, const Function& make)
{
    if (*qualifier_ == '\0') {
        operation_.call({function, detail1, detail2}, onFailure, make);
    } else {
        const BoundedText<64> qualified{qualifier_, function};
        operation_.call({qualified.text(), detail1, detail2}, onFailure, make);
    }
}

void ObjectRequest::create(const char* className)
{
    qualifiedCall("QV_Create_Object", className, "", OnFailure::Stop,
                  [&] { return QV_Create_Object(&handle_, className); });
}

void ObjectRequest::set(const Setting& setting)
{
    const char* const value = orEmpty(setting.value);
    if (setting.label.text != nullptr) {
        operation_.step(setting.label.text, value, setting.label.closing);
    }
    qualifiedCall("QV_Set_Object_Attr", setting.name, setting.detail == Detail::Value ? value : "",
                  setting.onFailure, [&] { return QV_Set_Object_Attr(handle_, setting.name, value); });
}

void ObjectRequest::set(std::initializer_list<Setting> settings)
{
    for (const Setting& setting : settings) {
        set(setting);
    }
}

void ObjectRequest::setDefaults(const char* label, const Pairs& defaults)
{
    for (const Pair pair : defaults) {
        operation_.step(label, pair.name, "=", pair.value, "-");
        set(pair.name, pair.value);
    }
}

void ObjectRequest::setGiven(const char* label, const Pairs& pairs)
{
    for (const Pair pair : pairs) {
        if (given(pair.value)) {
            operation_.step(label, pair.name, "=", pair.value, "-");
            set(pair.name, pair.value);
        }
    }
}

void ObjectRequest::subscribe(const char* name, OnFailure onFailure)
{
    qualifiedCall("QV_Subscribe_Object_Attr", name, "", onFailure,
                  [&] { return QV_Subscribe_Object_Attr(handle_, name); });
}

void ObjectRequest::subscribe(const AttributeNames& names)
{
    for (const char* const name : names) {
        subscribe(name);
    }
}

void ObjectRequest::open(OnFailure onFailure)
{
    qualifiedCall("QV_Open_Object", "", "", onFailure, [&] { return QV_Open_Object(handle_); });
}

void ObjectRequest::save(OnFailure onFailure)
{
    qualifiedCall("QV_Save_Object", "", "", onFailure, [&] { return QV_Save_Object(handle_); });
}

void ObjectRequest::remove()
{
    qualifiedCall("QV_Delete_Object", "", "", OnFailure::Stop, [&] { return QV_Delete_Object(handle_); });
}

void CurrentObject::reset() noexcept
{
    LastRecNo = -1;
    entries = -1;
    copyToFit(FromList, sizeof FromList, "Object");
}

void CurrentObject::renew(const char* className)
{
    if (!operation().stopped()) {
        QV_Destroy_Object(&QV_ObjPtr);
        create(className);
    }
}

bool CurrentObject::count() noexcept
{
    entries = QV_RC >= 0 ? 1 : 0;
    return entries == 1;
}

void CurrentObject::exit(const char* text) const
{
    operation().trace(text, entries, "--------------------");
}

} // namespace velrzm
