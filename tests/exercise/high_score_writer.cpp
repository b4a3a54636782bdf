// A program that records one result, for the tests of many programs at once:
//
//     high_score_writer FOLDER TITLE NAME MARK SECONDS
//
// It prints "ready", waits for a line (or the end) of its input, records, and
// prints "recorded" once the file holds the result. A refusal goes to the error
// output, and the exit code is 1.

#include "base/number_text.h"
#include "exercise/high_score_file.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 6) {
        std::cerr << "usage: high_score_writer FOLDER TITLE NAME MARK SECONDS\n";
        return 2;
    }
    stoikal::HighScoreFile file(arguments[1]);
    const stoikal::NewResult result{arguments[3], stoikal::ReadNumber(arguments[4]),
                                    stoikal::ReadNumber(arguments[5])};

    std::cout << "ready" << std::endl;
    std::string line;
    std::getline(std::cin, line);

    const auto outcome = file.Record(arguments[2], result, u',');
    if (!outcome) {
        std::cerr << outcome.Reason().toStdString() << '\n';
        return 1;
    }
    std::cout << "recorded" << std::endl;
    return 0;
}
