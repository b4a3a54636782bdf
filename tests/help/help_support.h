#pragma once

#include "help/help_archive.h"
#include "help/help_file.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <stdexcept>

namespace stoikal {

/// The three help files that ship with the program, by their full names.
inline QStringList ShippedHelpFiles()
{
    const QString folder = QStringLiteral(STOIKAL_HELP_DIR);
    return {folder + QStringLiteral("/Stoikal.chm"), folder + QStringLiteral("/Glossaire_Atomes.chm"),
            folder + QStringLiteral("/Glossaire_Scientifiques.chm")};
}

inline QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    return file.readAll();
}

/// Opens a help file that must be one.
inline std::shared_ptr<HelpFile> OpenedHelp(const QString& path)
{
    const auto file = HelpFile::Open(path);
    if (!file)
        throw std::runtime_error(file.Reason().toStdString());
    return *file;
}

} // namespace stoikal
