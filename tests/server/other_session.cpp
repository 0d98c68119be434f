// SPDX-License-Identifier: Apache-2.0
//
// A user (the argument) of the store that QV_STORE names: carries out the commands of its standard input, one
// a line, and answers each with the code of the call, or with the size of a list.
#include <array>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <poll.h>
#include <unistd.h>

#include <velrzm/qv_sdk.h>

namespace {

void set(QV_ObjectHandle object, const std::string& pair)
{
    const auto middle = pair.find('=');
    QV_Set_Object_Attr(object, pair.substr(0, middle).c_str(), pair.substr(middle + 1).c_str());
}

int create(const std::string& className, const std::vector<std::string>& pairs)
{
    QV_ObjectHandle object = nullptr;
    QV_Create_Object(&object, className.c_str());
    for (const std::string& pair : pairs) {
        set(object, pair);
    }
    const int code = QV_Save_Object(object);
    QV_Destroy_Object(&object);
    return code;
}

int change(const std::string& className, const std::vector<std::string>& keyAndAttribute)
{
    QV_ObjectHandle object = nullptr;
    QV_Create_Object(&object, className.c_str());
    set(object, keyAndAttribute.at(0));
    QV_Open_Object(object);
    set(object, keyAndAttribute.at(1));
    const int code = QV_Save_Object(object);
    QV_Destroy_Object(&object);
    return code;
}

int createAndCheckIn(QV_ObjectHandle document)
{
    return QV_Create_and_CheckIn_Doc(document, 0);
}

int checkIn(QV_ObjectHandle document)
{
    return QV_CheckIn_Doc(document, 0);
}

int revise(QV_ObjectHandle document)
{
    QV_ObjectHandle revision = nullptr;
    const int code = QV_Make_New_Revision(document, &revision);
    QV_Destroy_Object(&revision);
    return code;
}

using VaultCall = int (*)(QV_ObjectHandle);

/** Makes the call with a document that is opened by its attributes, or new. */
int inVault(VaultCall call, const std::vector<std::string>& pairs)
{
    QV_ObjectHandle document = nullptr;
    QV_Create_Object(&document, "DocVersion");
    for (const std::string& pair : pairs) {
        set(document, pair);
    }
    if (call != createAndCheckIn) {
        QV_Open_Object(document);
    }
    const int code = call(document);
    QV_Destroy_Object(&document);
    return code;
}

int sizeOf(const std::string& className)
{
    QV_ListHandle list = nullptr;
    int size = -1;
    QV_Create_List(&list, className.c_str());
    QV_Open_List(list);
    QV_SizeOf_List(list, &size);
    QV_Destroy_List(&list);
    return size;
}

/** How many of the sizes that it reads until the next command comes are no multiples of `multiple`. */
int watch(const std::string& className, int multiple)
{
    int others = 0;
    for (pollfd input = {STDIN_FILENO, POLLIN, 0}; poll(&input, 1, 0) == 0;) {
        others += sizeOf(className) % multiple == 0 ? 0 : 1;
    }
    return others;
}

int carryOut(const std::string& line)
{
    std::istringstream words(line);
    std::string command;
    std::string className;
    words >> command >> className;
    std::vector<std::string> pairs;
    for (std::string pair; words >> pair;) {
        pairs.push_back(pair);
    }
    if (command == "start") {
        return QV_Start_Multisave();
    }
    if (command == "commit") {
        return QV_Commit_Multisave();
    }
    if (command == "discard") {
        return QV_Discard_Multisave();
    }
    if (command == "create") {
        return create(className, pairs);
    }
    if (command == "watch") {
        return watch(className, std::stoi(pairs.at(0)));
    }
    const std::map<std::string, VaultCall> vaultCalls = {{"create-and-check-in", createAndCheckIn},
                                                         {"check-out", QV_CheckOut_Doc},
                                                         {"check-in", checkIn},
                                                         {"cancel", QV_Cancel_CheckOut_Doc},
                                                         {"revise", revise}};
    if (const auto vaultCall = vaultCalls.find(command); vaultCall != vaultCalls.end()) {
        return inVault(vaultCall->second, pairs);
    }
    return command == "change" ? change(className, pairs) : sizeOf(className);
}

} // namespace

int main(int count, char** arguments)
{
    std::array<char, 1> reserved = {};
    QV_Open_Env();
    QV_Logon(count > 1 ? arguments[1] : "jdoe", "secret", reserved.data(), reserved.data());
    for (std::string line; std::getline(std::cin, line);) {
        std::cout << carryOut(line) << std::endl;
    }
}
