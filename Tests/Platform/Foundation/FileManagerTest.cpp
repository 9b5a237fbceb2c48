// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/FileManager.h"

#include "Tests/Support/FullDisk.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using platform::FileError;
using platform::FileManager;
using test::FullDisk;

namespace {

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
    for (const int size : {1001, 100'000}) {
        const FullDisk full(1000);
        EXPECT_THROW(FileManager::writeAtomically(QByteArray(size, 'x'), path_), FileError);
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
