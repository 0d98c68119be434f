// SPDX-License-Identifier: Apache-2.0
//
// Prints what QV_PrintList reads from a file: a line for each object, with the values of the attributes
// named.
#include <iostream>

#include <velrzm/print_list.h>

int main(int argc, char* argv[])
{
    if (argc < 2) {
        return 2;
    }
    const int size = QV_PrintList::Open(argv[1]);
    for (int object = 0; object < size && QV_PrintList::Next() == 1; ++object) {
        for (int i = 2; i < argc; ++i) {
            std::cout << (i == 2 ? "" : "|") << QV_PrintList::GetValue(argv[i]).CastToCharPtr();
        }
        std::cout << '\n';
    }
    QV_PrintList::Close();
}
