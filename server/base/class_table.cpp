// SPDX-License-Identifier: Apache-2.0
#include "server/base/class_table.h"

#include <algorithm>

#include "server/base/errors.h"
#include "server/base/text.h"

namespace qvserver {

namespace {

Reference changeIfSet()
{
    return {"EngineeringChange", {{"il_ec_number", "id"}}, Needed::IfSet};
}

Reference itemIn(std::string_view path)
{
    return {classes::item, {{path, "logical_key@item_number"}}};
}

Class engineeringChange()
{
    return {"EngineeringChange",
            {"id"},
            {{"id"},
             {"desc"},
             {"status", Kind::Text, Source::Default, "OPEN"},
             {"chg_control_code", Kind::Text, Source::Default, "1"},
             {"initiator@person_identifier"},
             {"x_sec_level_code"},
             {"x_sec_cat_code"}}};
}

Class item()
{
    Class item = {classes::item,
                  {"logical_key@item_number", "logical_key@loc_id", "il_ec_number"},
                  {{"logical_key@item_number"},
                   {"logical_key@loc_id"},
                   {"il_ec_number"},
                   {"name"},
                   {"description"},
                   {"item_type"},
                   {"design_loc_id"},
                   {"x_sec_level_code"},
                   {"x_sec_cat_code"},
                   {"insert_by", Kind::Number, Source::OwnId},
                   {"extract_by", Kind::Number, Source::Default, "2147483647"},
                   {"net_pu_flg", Kind::Text, Source::Server, "N"},
                   {"master_item@control", Kind::Text, Source::Default, "1"}}};
    item.relations = {{"ai_obj", "AffectedItem", {"logical_key@item_number", "item_number"}, Related::Each}};
    item.references = {changeIfSet()};
    item.atChange = {"il_ec_number",
                     "AffectedItem",
                     {{"il_ec_number", "ec@id"}, {"logical_key@item_number", "item_number"}}};
    item.companion = {"create_bomheader", "BomHeader"};
    return item;
}

Class affectedItem()
{
    Class affected = {"AffectedItem",
                      {"ec@id", "item_number"},
                      {{"ec@id"},
                       {"item_number"},
                       {"change_action@curr_key"},
                       {"design_seq_num", Kind::Number, Source::OwnId},
                       {"item_status", Kind::Text, Source::Default, "WORKING"},
                       {"pln_rev_level", Kind::Number, Source::Counted, "item_number"},
                       {"item_key@item_number", Kind::Text, Source::Copy, "item_number"}}};
    affected.relations = {{"ec", "EngineeringChange", {"ec@id", "id"}, Related::Each}};
    affected.references = {{"EngineeringChange", {{"ec@id", "id"}}}, itemIn("item_number")};
    return affected;
}

Class effectivity()
{
    Class effectivity = {"ItemProductUnitEffectivity",
                         {"item_number", "loc_id", "ecid", "prod_id", "cut_in_unit"},
                         {{"item_number"}, {"loc_id"}, {"ecid"}, {"prod_id"}, {"cut_in_unit"}}};
    effectivity.flag = {classes::item, {"item_number", "logical_key@item_number"}, "net_pu_flg"};
    return effectivity;
}

Class itemAssociation()
{
    return {"ItemAssociationData",
            {"logical_key@item_number", "logical_key@loc_id", "logical_key@alias", "il_ec_number"},
            {{"logical_key@item_number"},
             {"logical_key@loc_id"},
             {"logical_key@alias"},
             {"il_ec_number"},
             {"alias_desc"},
             {"alias_type@curr_key"},
             {"alias_xref"}}};
}

Class document()
{
    Class document = {
        classes::document,
        {"doc_revision@doc_number", "doc_revision@doc_rev_num"},
        {{"doc_revision@doc_number", Kind::Text, Source::Numbered, "DOC-"},
         {"doc_revision@doc_rev_num"},
         {"doc_ver_num", Kind::Number, Source::Server, "1"},
         {"doc_revision@doc_rev_num_v", Kind::Text, Source::RevisionSort, "doc_revision@doc_rev_num"},
         {"doc_revision@doc_title"},
         {"doc_revision@chg_ctrl"},
         {"doc_revision@doc_ctrl_num"},
         {"doc_revision@primary_config@db_object_id", Kind::Number, Source::OwnId},
         {"copy_count", Kind::Number, Source::Default, "0"},
         {"ckout_user", Kind::Text, Source::Server},
         {"ckin_userdata3"},
         {"doc_primary_fmt@user_data3", Kind::Text, Source::Follows, "ckin_userdata3"}}};
    document.vault = {"doc_ver_num", "doc_revision@doc_rev_num_v", "ckout_user"};
    return document;
}

Class bomHeader()
{
    return {"BomHeader",
            {"logical_key@item_number", "logical_key@loc_id", "il_ec_number"},
            {{"logical_key@item_number"}, {"logical_key@loc_id"}, {"il_ec_number"}}};
}

Class component()
{
    Class component = {classes::component,
                       {"logical_key@item_number", "logical_key@loc_id", "logical_key@comp_item_number",
                        "logical_key@comp_seq_nm", "il_ec_number"},
                       {{"logical_key@item_number"},
                        {"logical_key@loc_id"},
                        {"logical_key@comp_item_number"},
                        {"logical_key@comp_seq_nm"},
                        {"il_ec_number"},
                        {"item_type@curr_key"}}};
    component.relations = {
        {"item", classes::item, {"logical_key@item_number", "logical_key@item_number"}, Related::Newest},
        {"comp_item",
         classes::item,
         {"logical_key@comp_item_number", "logical_key@item_number"},
         Related::Newest}};
    component.references = {itemIn("logical_key@item_number"), itemIn("logical_key@comp_item_number")};
    component.structureLine = {"logical_key@item_number", "logical_key@comp_item_number"};
    return component;
}

Class componentReference()
{
    Class reference = {"ComponentReference",
                       {"logical_key@item_number", "logical_key@loc_id", "logical_key@comp_item_number",
                        "logical_key@comp_seq_nm", "logical_key@comp_ref", "il_ec_number"},
                       {{"logical_key@item_number"},
                        {"logical_key@loc_id"},
                        {"logical_key@comp_item_number"},
                        {"logical_key@comp_seq_nm"},
                        {"logical_key@comp_ref"},
                        {"il_ec_number"},
                        {"comp_ref_xref"}}};
    reference.references = {{classes::component,
                             {{"logical_key@item_number", "logical_key@item_number"},
                              {"logical_key@loc_id", "logical_key@loc_id"},
                              {"logical_key@comp_item_number", "logical_key@comp_item_number"},
                              {"logical_key@comp_seq_nm", "logical_key@comp_seq_nm"},
                              {"il_ec_number", "il_ec_number"}},
                             Needed::Always,
                             OnDelete::DeleteToo}};
    return reference;
}

Class itemReference()
{
    return {"ItemReference",
            {"logical_key@item_number", "logical_key@loc_id", "logical_key@reference_id", "il_ec_number"},
            {{"logical_key@item_number"},
             {"logical_key@loc_id"},
             {"logical_key@reference_id"},
             {"il_ec_number"},
             {"reference_level"},
             {"item_ref_xref"}}};
}

Class productOption()
{
    return {
        classes::productOption, {"product", "feature", "variant"}, {{"product"}, {"feature"}, {"variant"}}};
}

Class productPackage()
{
    return {classes::productPackage, {"product", "package_id"}, {{"product"}, {"package_id"}}};
}

Class translationEntry()
{
    return {classes::translationEntry, {"table_name", "from"}, {{"table_name"}, {"from"}, {"to"}}};
}

const std::vector<Class> all = {engineeringChange(),  item(),          affectedItem(),  effectivity(),
                                itemAssociation(),    document(),      bomHeader(),     component(),
                                componentReference(), itemReference(), productOption(), productPackage(),
                                translationEntry()};

} // namespace

const Attribute* Class::attribute(std::string_view path) const noexcept
{
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [path](const Attribute& attribute) { return attribute.path == path; });
    return found == attributes.end() ? nullptr : &*found;
}

const Relation* Class::relation(std::string_view relationName) const noexcept
{
    const auto found =
        std::find_if(relations.begin(), relations.end(),
                     [relationName](const Relation& relation) { return relation.name == relationName; });
    return found == relations.end() ? nullptr : &*found;
}

const std::vector<Class>& allClasses() noexcept
{
    return all;
}

const Class& classNamed(std::string_view name)
{
    const auto found =
        std::find_if(all.begin(), all.end(), [name](const Class& known) { return known.name == name; });
    if (found == all.end()) {
        fail(Failure::BadArgument, "there is no class ", inQuotes(name),
             "; there are: ", joined(all, ", ", [](const Class& known) { return known.name; }));
    }
    return *found;
}

void checkPath(std::string_view path)
{
    if (!isPath(path)) {
        fail(Failure::BadPath, inQuotes(path),
             " is not an attribute path: names of letters, digits and _, joined by @, of ", maxPathLength,
             " characters at most");
    }
}

} // namespace qvserver
