// SPDX-License-Identifier: Apache-2.0
//
// A user (the argument) of the store that QV_STORE names: carries out the commands of its standard input, one
// a line, and answers each with the code of the call, or with the size of a list.
#include <array>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

#include <poll.h>
#include <unistd.h>

#include <velrzm/qv_sdk.h>

namespace {

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

const std::map<std::string, int (*)()> callsAlone = {
    {"start", QV_Start_Multisave}, {"commit", QV_Commit_Multisave}, {"discard", QV_Discard_Multisave}};
const std::map<std::string, int (*)(QV_ObjectHandle)> callsOnNew = {
    {"create", QV_Save_Object}, {"create-and-check-in", createAndCheckIn}};
const std::map<std::string, int (*)(QV_ObjectHandle)> callsOnOpened = {{"change", QV_Save_Object},
                                                                       {"check-out", QV_CheckOut_Doc},
                                                                       {"check-in", checkIn},
                                                                       {"cancel", QV_Cancel_CheckOut_Doc},
                                                                       {"revise", revise}};

/** Makes the call with an object that has the attributes, and is opened by those before "with". */
int callOnObject(const std::string& command, const std::string& className, std::istream& attributes)
{
    QV_ObjectHandle object = nullptr;
    QV_Create_Object(&object, className.c_str());
    const auto opening = callsOnOpened.find(command);
    bool isOpen = opening == callsOnOpened.end();
    for (std::string word; attributes >> word;) {
        const auto middle = word.find('=');
        if (middle == std::string::npos) {
            isOpen = QV_Open_Object(object) == 0;
        } else {
            QV_Set_Object_Attr(object, word.substr(0, middle).c_str(), word.substr(middle + 1).c_str());
        }
    }
    if (!isOpen) {
        QV_Open_Object(object);
    }
    const int code =
        opening == callsOnOpened.end() ? callsOnNew.at(command)(object) : opening->second(object);
    QV_Destroy_Object(&object);
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
int watch(const std::string& className, std::istream& words)
{
    int multiple = 0;
    int others = 0;
    words >> multiple;
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
    if (const auto alone = callsAlone.find(command); alone != callsAlone.end()) {
        return alone->second();
    }
    if (command == "watch") {
        return watch(className, words);
    }
    return command == "size" || command == "stop" ? sizeOf(className)
                                                  : callOnObject(command, className, words);
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
