// SPDX-License-Identifier: Apache-2.0
#include "tests/operations/operations.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <tuple>
#include <type_traits>

#include <velrzm/velrzm.h>

using harness::Named;

namespace operations {

namespace {

using List = VELListValVELUnicodeString;
using Run = std::function<int(Inputs&)>;

/** The next argument of a function that takes `lists` more lists; a text that the use does not give is a buffer. */
template <class Parameter>
decltype(auto) nextArgument(Inputs& in, int& lists)
{
    if constexpr (std::is_same_v<Parameter, List&>) {
        return in.list(3 - lists--);
    } else if constexpr (std::is_same_v<Parameter, char**>) {
        return in.names();
    } else if constexpr (std::is_same_v<Parameter, int>) {
        return std::stoi(in.text(false));
    } else {
        return in.text(std::is_same_v<Parameter, char*>);
    }
}

/** A function that takes inputs and buffers, and changes `watched` beside what every story tells. */
template <class... Parameters>
Run use(int (*function)(Parameters...), const std::vector<const int*>& watched = {})
{
    return [=](Inputs& in) {
        [[maybe_unused]] int lists = (0 + ... + (std::is_same_v<Parameters, List&> ? 1 : 0));
        std::tuple<std::conditional_t<std::is_same_v<Parameters, List&>, List&, std::decay_t<Parameters>>...>
            arguments{nextArgument<Parameters>(in, lists)...};
        const int result = in.make([&] { return std::apply(function, arguments); });
        for (const auto& buffer : in.buffers()) {
            in.put(buffer.data());
        }
        for (const int* const number : watched) {
            in.put(std::to_string(*number));
        }
        return result;
    };
}

/** A function that fills lists, which held something before; its text stands in one of them. */
template <class... Lists>
Run fill(int (*function)(const VELUnicodeString&, Lists...))
{
    return [function](Inputs& in) {
        std::array<List, sizeof...(Lists)> lists;
        lists.front().Append(in.text(false));
        lists.front().Append("older");
        lists.fill(List(lists.front()));
        const List& own = QVL_Traces_Level < 5 ? lists.front() : lists.back();
        const int result = in.make(
            [&] { return std::apply([&](auto&... each) { return function(own[1], each...); }, lists); });
        for (const List& list : lists) {
            std::string texts;
            for (int position = 1; position <= list.Size(); ++position) {
                texts += (position == 1 ? "" : ", ") + std::string(list[position]);
            }
            in.put(texts);
        }
        return result;
    };
}

int explode(Inputs& in)
{
    std::vector<std::string> texts;
    std::vector<char*> values;
    for (const Named& parameter : in.use().arguments) {
        texts.push_back(parameter.name);
        values.push_back(in.text(true));
    }
    harness::Names names(texts);
    const bool isNull = values == std::vector<char*>(values.size());
    return in.make([&] { return BomExplode(names, isNull ? nullptr : values.data(), in.names()); });
}

const std::map<std::string, Run>& functions()
{
    static const std::map<std::string, Run> all = {
        {"AffectedItemCreate", use(AffectedItemCreate)},
        {"AffectedItemQuery", use(AffectedItemQuery)},
        {"BomExplode", explode},
        {"BomHeaderCreate", use(BomHeaderCreate)},
        {"ComponentCreate", use(ComponentCreate)},
        {"ComponentDelete", use(ComponentDelete)},
        {"ComponentOpen", use(ComponentOpen)},
        {"ComponentReferenceDelete", use(ComponentReferenceDelete)},
        {"ComponentReferenceSave", use(ComponentReferenceSave)},
        {"DefaultRead", fill(DefaultRead)},
        {"DestroyListOrReport", use(DestroyListOrReport)},
        {"DocumentCancelCheckOut", use(DocumentCancelCheckOut)},
        {"DocumentCheckIn", use(DocumentCheckIn)},
        {"DocumentCheckOut", use(DocumentCheckOut)},
        {"DocumentCreateCheckIn", use(DocumentCreateCheckIn)},
        {"DocumentGetLastRevision", use(DocumentGetLastRevision)},
        {"DocumentMakeECControlled", use(DocumentMakeECControlled)},
        {"DocumentMakeNewRevision", use(DocumentMakeNewRevision)},
        {"DocumentOpen", use(DocumentOpen)},
        {"EngineeringChangeCreate", use(EngineeringChangeCreate)},
        {"EngineeringChangeOpen", use(EngineeringChangeOpen)},
        {"GetAttributeValue", use<int, int, char*, char*>(GetAttributeValue, {&LastAttNo})},
        {"GetValue", use<int, const char*, char*>(GetValue)},
        {"ItemAssociationOpen", use(ItemAssociationOpen)},
        {"ItemAssociationSave", use(ItemAssociationSave)},
        {"ItemCreate", use(ItemCreate)},
        {"ItemHeaderCreate", use(ItemHeaderCreate)},
        {"ItemOpen", use(ItemOpen)},
        {"ItemPUEffectivityCreate", use(ItemPUEffectivityCreate)},
        {"ItemQuery", use(ItemQuery)},
        {"ItemReferenceCreate", use(ItemReferenceCreate)},
        {"ItemReferenceDelete", use(ItemReferenceDelete)},
        {"ItemReferenceQuery", use(ItemReferenceQuery)},
        {"ItemSave", use(ItemSave)},
        {"MultiSaveCommit", use(MultiSaveCommit, {&MultiSaveStarted})},
        {"MultiSaveDiscard", use(MultiSaveDiscard, {&MultiSaveStarted})},
        {"MultiSaveStart", use(MultiSaveStart, {&MultiSaveStarted})},
        {"Process_QV_RC", use(Process_QV_RC)},
        {"ProductOptionQuery", fill(ProductOptionQuery)},
        {"ProductPackageQuery", fill(ProductPackageQuery)},
        {"QvConnect", use(QvConnect, {&EnvOpened, &UserLoggedOn})},
        {"QvExit", use(QvExit, {&EnvOpened, &UserLoggedOn})},
        {"XlatRead", fill(XlatRead)},
        {"XlatRead2", fill(XlatRead2)},
    };
    return all;
}

} // namespace

Inputs::Inputs(const harness::Use& use) : use_(use), lists_(3)
{
    const auto isOwn = [](const Named& argument) { return argument.isOwn; };
    use_.arguments.erase(std::remove_if(use_.arguments.begin(), use_.arguments.end(), isOwn),
                         use_.arguments.end());
    for (const Named& pair : use.pairs) {
        lists_[0].Append(pair.name.c_str());
        lists_[1].Append(pair.value ? pair.value->c_str() : nullptr);
    }
    if (use.selection) {
        names_.emplace(use.selection->names);
        for (const std::string& name : use.selection->names) {
            lists_[2].Append(name.c_str());
        }
    }
}

char* Inputs::text(bool isChangeable)
{
    if (next_ == use_.arguments.size()) {
        return buffers_.emplace_back(std::array<char, 20000>{"untouched"}).data();
    }
    const Named& argument = use_.arguments[next_++];
    expected_.push_back(isChangeable ? argument.text() : argument.value.value_or(""));
    std::string& copy = copies_.emplace_back(argument.value.value_or(""));
    return argument.value ? copy.data() : nullptr;
}

char** Inputs::names()
{
    return names_ ? static_cast<char**>(*names_) : nullptr;
}

int run(Inputs& inputs)
{
    return functions().at(inputs.use().operation)(inputs);
}

} // namespace operations
