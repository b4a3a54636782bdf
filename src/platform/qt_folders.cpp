#include "platform/qt_platform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>

namespace stoikal {
namespace {

const char kOwnFolder[] = "/Tovik_MARLEN/Stoikal";

/// What a variable says, else the machine's folder when the program's own
/// folder in it is there and writable, else the user's.
QString Place(const char* variable, const QString& ofMachine, QStandardPaths::StandardLocation ofUser)
{
    if (const QString said = qEnvironmentVariable(variable); !said.isEmpty())
        return QDir::cleanPath(said);
    const QFileInfo own(ofMachine + QLatin1String(kOwnFolder));
    if (own.isDir() && own.isWritable())
        return ofMachine;
    return QStandardPaths::writableLocation(ofUser);
}

QString SeedFolder(const QString& program)
{
    return program + QStringLiteral("/exercises");
}

} // namespace

bool IsNetworkFileSystem(const QByteArray& type)
{
    static const QList<QByteArray> kTypes{"nfs",
                                          "nfs4",
                                          "cifs",
                                          "smb3",
                                          "smbfs",
                                          "smb2",
                                          "9p",
                                          "afs",
                                          "ncpfs",
                                          "ceph",
                                          "fuse.ceph",
                                          "fuse.glusterfs",
                                          "lustre",
                                          "fuse.sshfs",
                                          "fuse.gvfsd-fuse",
                                          "fuse.smbnetfs",
                                          "fuse.rclone",
                                          "davfs",
                                          "gfs2",
                                          "fuse.davfs2"};
    return kTypes.contains(type);
}

QString QtFolders::CommonAppData() const
{
    return Place("STOIKAL_APPDATA_DIR", QStringLiteral("/var/lib"), QStandardPaths::GenericDataLocation);
}

QString QtFolders::CommonDocuments() const
{
    return Place("STOIKAL_DOCUMENTS_DIR", QStringLiteral("/srv/documents"),
                 QStandardPaths::DocumentsLocation);
}

QString QtFolders::Program() const
{
    if (const QString said = qEnvironmentVariable("STOIKAL_PROGRAM_DIR"); !said.isEmpty())
        return QDir::cleanPath(said);
    const QString beside = QCoreApplication::applicationDirPath();
    const QString installed = QDir::cleanPath(beside + QStringLiteral("/../share/stoikal"));
    return QFileInfo(installed).isDir() ? installed : beside;
}

QStringList QtFolders::SeedFiles() const
{
    QStringList files;
    for (const QString& folder : {SeedFolder(Program()), Program() + QStringLiteral("/tips")}) {
        const auto entries = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo& entry : entries)
            files << entry.absoluteFilePath();
    }
    return files;
}

QString QtFolders::NetworkRoot() const
{
    if (const QString said = qEnvironmentVariable("STOIKAL_NETWORK_ROOT"); !said.isEmpty())
        return QDir::cleanPath(said);
    const QStorageInfo storage(QCoreApplication::applicationDirPath());
    return IsNetworkFileSystem(storage.fileSystemType()) ? storage.rootPath() : QString();
}

QString QtFolders::Cache() const
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
        + QStringLiteral("/stoikal");
}

} // namespace stoikal
