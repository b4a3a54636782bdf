#pragma once

#include "support/file_bytes.h"

#include <QTemporaryDir>

namespace stoikal {

/// A folder for one test, and a journal in it that is not made yet.
struct JournalFolder {
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Resultat.txt"));

    QByteArray Content() const { return BytesOfFile(path); }
};

} // namespace stoikal
