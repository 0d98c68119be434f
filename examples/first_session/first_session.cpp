// SPDX-License-Identifier: Apache-2.0
//
// A first session: connect, store an engineering change, open it again, read its attributes, disconnect.
//
// A store in memory is enough to try it:  QV_STORE=sqlite::memory: ./first_session
#include <iostream>

#include <velrzm/velrzm.h>

int main()
{
    // Failures are reported on standard output and in the logs; the return value tells that there was one.
    if (QvConnect("jdoe", "secret") == 0) {
        std::cerr << "No connection; the reason stands above and in ./QVL_LAST_ERROR.\n";
        return 1;
    }

    // Every operation returns the number of its results: 1 when the change was stored, else 0. The number is
    // stored in upper case.
    if (EngineeringChangeCreate("ec-100", "Stronger bracket", "", "", "jdoe") == 0) {
        std::cerr << "The engineering change was not stored.\n";
        return 1;
    }

    // The stored change is now the current result. Its values are read by record, counted from 0, and
    // attribute.
    char value[QV_MAX_VALUE_LENGTH + 1];
    GetValue(0, "db_object_id", value, sizeof value);
    std::cout << "Stored with the identifier " << value << '\n';

    // Open it by its number, without an identifier, and name the attributes to read back.
    char noIdentifier[] = "";
    char number[] = "EC-100";
    char id[] = "id";
    char description[] = "desc";
    char initiator[] = "initiator@person_identifier";
    char* attributes[] = {id, description, initiator, nullptr};
    if (EngineeringChangeOpen(noIdentifier, number, attributes) == 0) {
        std::cerr << "The engineering change was not found.\n";
        return 1;
    }

    // The selected attributes can be walked by number as well.
    int records = 0;
    int selected = 0;
    SizeOfAttributeValue(&records, &selected);
    for (int attribute = 0; attribute < selected; ++attribute) {
        char name[sizeof SelectedAttribute[0]];
        GetAttributeValue(0, attribute, name, sizeof name, value, sizeof value);
        std::cout << name << " = " << value << '\n';
    }

    QvExit();
}
