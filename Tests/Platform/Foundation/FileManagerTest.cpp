#include "Platform/Foundation/FileManager.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

using platform::FileError;
using platform::FileManager;

namespace {

/// Lets no file of this process grow beyond a size while it lives: what a full disk looks like.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        signalBefore_ = ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limited{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, signalBefore_);
    }

private:
    rlimit before_{};
    sighandler_t signalBefore_ = nullptr;
};

class FileManagerTest : public testing::Test {
protected:
    QTemporaryDir directory_;
    QString path_ = directory_.filePath(QStringLiteral("a/b/list.json"));
};

TEST_F(FileManagerTest, WritesAFileAndTheDirectoriesAboveIt) {
    EXPECT_FALSE(FileManager::contents(path_));
    FileManager::writeAtomically("first", path_);
    FileManager::writeAtomically("second", path_);
    EXPECT_EQ(FileManager::contents(path_), QByteArray("second"));
    EXPECT_EQ(
        QDir(directory_.filePath(QStringLiteral("a/b"))).entryList(QDir::Files | QDir::Hidden),
        QStringList{QStringLiteral("list.json")});
}

TEST_F(FileManagerTest, LeavesTheOldFileWhenTheDiskIsFull) {
    FileManager::writeAtomically("kept", path_);
    {
        const FullDisk full(1000);
        EXPECT_THROW(FileManager::writeAtomically(QByteArray(100'000, 'x'), path_), FileError);
    }
    EXPECT_EQ(FileManager::contents(path_), QByteArray("kept"));
    EXPECT_EQ(
        QDir(directory_.filePath(QStringLiteral("a/b"))).entryList(QDir::Files | QDir::Hidden),
        QStringList{QStringLiteral("list.json")});
}

TEST_F(FileManagerTest, SaysWhyADirectoryOrFileCannotBeMade) {
    FileManager::writeAtomically("a file", directory_.filePath(QStringLiteral("file")));
    try {
        FileManager::createDirectory(directory_.filePath(QStringLiteral("file/sub")));
        FAIL() << "made a directory inside a file";
    } catch (const FileError& error) {
        EXPECT_FALSE(error.localizedDescription().isEmpty());
    }
    EXPECT_THROW(FileManager::writeAtomically("x", directory_.filePath(QStringLiteral("file/x"))),
                 FileError);
    EXPECT_THROW(FileManager::createDirectory(QString()), FileError);
}

} // namespace
