#include "files/NewFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "support/DiskTrace.h"
#include "support/Helpers.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto privateMode = QFile::ReadOwner | QFile::WriteOwner;
constexpr auto sharedMode = privateMode | QFile::ReadGroup;

class NewFileTest : public testing::Test {
  protected:
    QString path(const QString& name) const { return folder_.filePath(name); }
    QStringList names() const {
        return QDir(folder_.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    static QFile::Permissions mode(const QString& file) {
        return QFile::permissions(file) &
               ~QFile::Permissions(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
    }

    QTemporaryDir folder_;
};

void publish(const QString& file) {
    NewFile created(file);
    created.write("new");
    created.publish();
}

void replace(const QString& file) {
    writeWholeFile(file, "new");
}

} // namespace

// Contents, name, folder: in any other order a power cut leaves an empty file, or takes back one that was
// reported.
TEST_F(NewFileTest, IsOnTheDiskBeforeAndUnderItsNameOrTheActionFails) {
    const QStringList whole{u"contents"_s, u"name"_s, u"folder"_s};
    for (const auto& make : {publish, replace}) {
        QFile::remove(path(u"a"_s));
        EXPECT_EQ(diskTrace([&] { make(path(u"a"_s)); }), whole);
        EXPECT_EQ(bytesOf(path(u"a"_s)), "new");
        EXPECT_EQ(mode(path(u"a"_s)), privateMode);
        for (const int failing : {1, 2}) {
            Raised raised;
            const QString file = path(u"failing-%1"_s.arg(failing));
            diskTrace([&] { raised = raisedBy([&] { make(file); }); }, failing);
            EXPECT_EQ(raised.number, 75) << "sync " << failing;
            EXPECT_TRUE(raised.description.contains(file)) << raised.description.toStdString();
            EXPECT_EQ(QFile::remove(file), failing == 2) << "has its name before it is on the disk";
        }
        EXPECT_EQ(names(), QStringList{u"a"_s});
    }
}

TEST_F(NewFileTest, WhatBearsTheNameStaysOrIsReplacedWhole) {
    replace(path(u"older"_s));
    QFile::setPermissions(path(u"older"_s), sharedMode);
    QFile::link(u"older"_s, path(u"link"_s));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    QDir(folder_.path()).mkdir(u"folder"_s);
    const QStringList before = names();

    for (const auto& name : {u"older"_s, u"link"_s, u"pipe"_s, u"folder"_s})
        EXPECT_TRUE(raisedBy([&] { publish(path(name)); }).description.contains(u"既に存在します"))
            << name.toStdString();
    for (const auto& name : {u"pipe"_s, u"folder"_s})
        EXPECT_EQ(raisedBy([&] { replace(path(name)); }).number, 75) << name.toStdString();
    EXPECT_EQ(raisedBy([&] { replace(path(u"none/a"_s)); }).number, 76);
    writeWholeFile(path(u"link"_s), "through the link");
    EXPECT_EQ(bytesOf(path(u"older"_s)), "through the link");
    EXPECT_EQ(mode(path(u"older"_s)), sharedMode);
    EXPECT_EQ(names(), before);

    NewFile other(path(u"older"_s));
    EXPECT_FALSE(other.publishAs(path(u"older"_s)));
    EXPECT_TRUE(other.publishAs(path(u"older_2"_s)));
}

TEST_F(NewFileTest, OnlyWhatIsAbandonedIsRemoved) {
    const QStringList kept{u".hollin-backup-1"_s, u".hollin-short"_s, u"a.mdb.backup"_s};
    for (const auto& name : kept + QStringList{u".hollin-aBcDeF"_s, u".hollin-aBcDeF-journal"_s})
        replace(path(name));
    const NewFile atWork(path(u"b"_s));
    QFile::link(u"a.mdb.backup"_s, path(u".hollin-Linked"_s));
    removeAbandonedFiles(folder_.path());
    auto left = kept + QStringList{atWork.temporaryPath().section(u'/', -1), u".hollin-Linked"_s};
    auto found = names();
    left.sort();
    found.sort();
    EXPECT_EQ(found, left);
}
