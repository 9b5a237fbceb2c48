// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Services/LoginItem.h"

#include "Platform/Foundation/FileManager.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using platform::FileManager;
using platform::LoginItem;

namespace {

/// An entry as it is found, and what becomes of it. "@" stands for the program's path.
struct Entry {
    const char* name;
    QByteArray found;
    bool isEnabled;
    QByteArray enabled;  ///< after it was switched on
    QByteArray disabled; ///< after the found one was switched off; empty where it is gone
};

const QByteArray ours = "[Desktop Entry]\nType=Application\nName=Quorvel\nIcon=quorvel\n"
                        "Exec=@\nTryExec=@\n";

class EachLoginItem : public testing::TestWithParam<Entry> {
protected:
    EachLoginItem() {
        FileManager::writeAtomically("", program_);
        QFile::setPermissions(program_, QFile::ReadOwner | QFile::ExeOwner);
    }

    QByteArray filledIn(QByteArray text) const { return text.replace("@", program_.toUtf8()); }

    void find(const QByteArray& text) const { FileManager::writeAtomically(filledIn(text), path_); }

    QByteArray file() const { return FileManager::contents(path_).value_or(QByteArray()); }

    QTemporaryDir directory_;
    QString program_ = directory_.filePath(QStringLiteral("bin/quorvel"));
    QString autostart_ = directory_.filePath(QStringLiteral("config/autostart"));
    QString path_ = autostart_ + QStringLiteral("/quorvel.desktop");
    LoginItem item_{{QStringLiteral("quorvel"), QStringLiteral("Quorvel"), program_}, autostart_};
};

TEST_P(EachLoginItem, KeepsWhatIsTheUsers) {
    find(GetParam().found);
    EXPECT_EQ(item_.isEnabled(), GetParam().isEnabled);
    item_.setEnabled(true);
    EXPECT_TRUE(item_.isEnabled());
    EXPECT_EQ(file(), filledIn(GetParam().enabled));
    find(GetParam().found);
    item_.setEnabled(false);
    EXPECT_FALSE(item_.isEnabled());
    EXPECT_EQ(file(), filledIn(GetParam().disabled));
    EXPECT_EQ(FileManager::isMissing(path_), GetParam().disabled.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    LoginItem, EachLoginItem,
    testing::Values(
        Entry{"Ours", ours, true, ours, ""},
        Entry{"HiddenByTheDesktop", ours + "Hidden=true\n", false, ours, ""},
        Entry{"SwitchedOffInGnome", ours + "X-GNOME-Autostart-enabled = False\n", false, ours, ""},
        Entry{"SwitchedOnInMate", ours + "X-MATE-Autostart-enabled=true\n", true, ours, ""},
        Entry{"OfAProgramThatHasGone",
              "[Desktop Entry]\nType=Application\nName=Quorvel\nIcon=quorvel\n"
              "Exec=\"/no\\\\$where/quorvel\"\nTryExec=/no$where/quorvel\n",
              false, ours, ""},
        Entry{"WithKeysOfTheUsers",
              "# mine\n\n[Desktop Entry]\nExec=@\nTryExec=@\nName=Prices\nName[de]=Preise\n"
              "X-GNOME-Autostart-Delay=9\n\n[Desktop Action x]\nExec=x\nHidden=true\n",
              true,
              "# mine\n\n[Desktop Entry]\nExec=@\nTryExec=@\nName=Prices\nName[de]=Preise\n"
              "X-GNOME-Autostart-Delay=9\nType=Application\nIcon=quorvel\n"
              "\n[Desktop Action x]\nExec=x\nHidden=true\n",
              "# mine\n\n[Desktop Entry]\nExec=@\nTryExec=@\nName=Prices\nName[de]=Preise\n"
              "X-GNOME-Autostart-Delay=9\nHidden=true\n"
              "\n[Desktop Action x]\nExec=x\nHidden=true\n"},
        Entry{"WithACommandOfTheUsers",
              "[Desktop Entry]\nType=Application\nName=Quorvel\nIcon=quorvel\nHidden=false\n"
              "Exec=nice @\nTryExec=@\n",
              true,
              "[Desktop Entry]\nType=Application\nName=Quorvel\nIcon=quorvel\n"
              "Exec=nice @\nTryExec=@\n",
              "[Desktop Entry]\nType=Application\nName=Quorvel\nIcon=quorvel\nHidden=true\n"
              "Exec=nice @\nTryExec=@\n"},
        Entry{"WithoutACommand", "[Desktop Entry]\nType=Application\nExec=\n", false,
              "[Desktop Entry]\nType=Application\nExec=@\nName=Quorvel\nIcon=quorvel\nTryExec=@\n",
              "[Desktop Entry]\nType=Application\nExec=\nHidden=true\n"},
        Entry{"Empty", "", false, ours, ""}),
    [](const auto& info) { return std::string(info.param.name); });

class LoginItemFile : public EachLoginItem {};

TEST_F(LoginItemFile, IsMadeWithItsDirectoryAndRemovedOnce) {
    EXPECT_FALSE(item_.isEnabled());
    item_.setEnabled(false);
    EXPECT_FALSE(QDir(autostart_).exists());
    item_.setEnabled(true);
    EXPECT_EQ(file(), filledIn(ours));
    item_.setEnabled(false);
    EXPECT_EQ(QDir(autostart_).entryList(QDir::Files | QDir::Hidden), QStringList());
}

TEST_F(LoginItemFile, IsRemovedAloneWhereItIsALink) {
    const QString target = directory_.filePath(QStringLiteral("applications/quorvel.desktop"));
    FileManager::writeAtomically("[Desktop Entry]\nExec=quorvel\nComment=theirs\n", target);
    FileManager::createDirectory(autostart_);
    ASSERT_TRUE(QFile::link(target, path_));
    EXPECT_TRUE(item_.isEnabled());
    item_.setEnabled(false);
    EXPECT_TRUE(FileManager::isMissing(path_));
    EXPECT_EQ(FileManager::contents(target), "[Desktop Entry]\nExec=quorvel\nComment=theirs\n");
}

TEST_F(LoginItemFile, SaysWhyItCannotBeChanged) {
    FileManager::writeAtomically("a file", autostart_);
    EXPECT_THROW(item_.setEnabled(true), platform::FileError);
    EXPECT_FALSE(item_.isEnabled());
    QFile::remove(autostart_);
    FileManager::createDirectory(path_); // no file, and not to be removed like one
    EXPECT_THROW(item_.setEnabled(false), platform::FileError);
}

// The reader here is the one of GNOME and its kin, so that the quoting is not judged by our own.
TEST_F(LoginItemFile, StartsAProgramWhateverItsPathHas) {
    for (const char* const folder :
         {"plain", "a b", " a\t\n'\"`$HOME\\\\x%f%%;&|<>~*?#()\\", "ü%U"}) {
        const QString program =
            directory_.filePath(QString::fromUtf8(folder) + QStringLiteral("/quorvel"));
        FileManager::writeAtomically("#!/bin/sh\nprintf %s \"$#\" >\"$0.done\"\n", program);
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
        LoginItem item({QStringLiteral("quorvel"), QStringLiteral("Quorvel"), program}, autostart_);
        item.setEnabled(true);
        EXPECT_TRUE(item.isEnabled()) << folder;
        test::ChildProcess launcher;
        launcher.start({"/usr/bin/python3", "-c",
                        "import sys\nfrom gi.repository import Gio\n"
                        "Gio.DesktopAppInfo.new_from_filename(sys.argv[1]).launch()",
                        path_.toStdString()});
        EXPECT_EQ(launcher.waitForEnd(std::chrono::seconds(30)), 0) << folder;
        EXPECT_TRUE(test::waitUntil([&] {
            return FileManager::contents(program + QStringLiteral(".done")) == QByteArray("0");
        })) << folder;
    }
}

} // namespace
