// A program that writes one setting, for the tests of many programs at once:
//
//     settings_writer FILE SECTION KEY VALUE
//
// It prints "ready", waits for a line (or the end) of its input, and writes.

#include "base/settings_store.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <iostream>
#include <string>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        std::cerr << "usage: settings_writer FILE SECTION KEY VALUE\n";
        return 2;
    }
    std::cout << "ready" << std::endl;
    std::string line;
    std::getline(std::cin, line);

    stoikal::SettingsStore store;
    return store.WriteSetting(arguments[1], arguments[2], arguments[3], arguments[4]) ? 0 : 1;
}
