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

/** The next argument of a function that takes `lists` more lists. */
template <class Parameter>
decltype(auto) nextArgument(Inputs& in, int& lists)
{
    if constexpr (std::is_same_v<Parameter, List&>) {
        return in.list(3 - lists--);
    } else if constexpr (std::is_same_v<Parameter, char**>) {
        return in.names();
    } else {
        return in.text(std::is_same_v<Parameter, char*>);
    }
}

/** A function that takes nothing but inputs. */
template <class... Parameters>
Run use(int (*function)(Parameters...))
{
    return [function](Inputs& in) {
        [[maybe_unused]] int lists = (0 + ... + (std::is_same_v<Parameters, List&> ? 1 : 0));
        std::tuple<std::conditional_t<std::is_same_v<Parameters, List&>, List&, std::decay_t<Parameters>>...>
            arguments{nextArgument<Parameters>(in, lists)...};
        return in.make([&] { return std::apply(function, arguments); });
    };
}

/** A function that fills lists, which held something before; its text stands in the first of them. */
template <class... Lists>
Run fill(int (*function)(const VELUnicodeString&, Lists...))
{
    return [function](Inputs& in) {
        std::array<List, sizeof...(Lists)> lists;
        lists.fill(harness::textList({in.text(false), "older"}));
        const int result = in.make([&] {
            return std::apply([&](auto&... each) { return function(lists.front()[1], each...); }, lists);
        });
        for (const List& list : lists) {
            in.output += in.output.empty() ? "[" : " | ";
            for (int position = 1; position <= list.Size(); ++position) {
                in.output += (position == 1 ? "" : ", ") + std::string(list[position]);
            }
        }
        in.output += ']';
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

int revise(Inputs& in)
{
    std::array<char, 20000> number{"untouched"};
    std::array<char, 20000> identifier{"untouched"};
    std::array<char*, 5> texts{};
    for (char*& text : texts) {
        text = in.text(true);
    }
    const int result = in.make([&] {
        return DocumentMakeNewRevision(texts[0], texts[1], texts[2], texts[3], texts[4], in.names(),
                                       number.data(), identifier.data());
    });
    in.output = std::string("[") + number.data() + " | " + identifier.data() + ']';
    return result;
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
        {"DocumentCancelCheckOut", use(DocumentCancelCheckOut)},
        {"DocumentCheckIn", use(DocumentCheckIn)},
        {"DocumentCheckOut", use(DocumentCheckOut)},
        {"DocumentCreateCheckIn", use(DocumentCreateCheckIn)},
        {"DocumentGetLastRevision", use(DocumentGetLastRevision)},
        {"DocumentMakeECControlled", use(DocumentMakeECControlled)},
        {"DocumentMakeNewRevision", revise},
        {"DocumentOpen", use(DocumentOpen)},
        {"EngineeringChangeCreate", use(EngineeringChangeCreate)},
        {"EngineeringChangeOpen", use(EngineeringChangeOpen)},
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
        {"ProductOptionQuery", fill(ProductOptionQuery)},
        {"ProductPackageQuery", fill(ProductPackageQuery)},
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
        lists_[2] = harness::textList(use.selection->names);
    }
}

char* Inputs::text(bool isChangeable)
{
    const Named& argument = use_.arguments.at(next_++);
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
