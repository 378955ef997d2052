#include "startup/FirstStart.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include "core/Database.h"
#include "database/Connection.h"
#include "database/Recordset.h"
#include "files/NewFile.h"
#include "support/Helpers.h"

using namespace Qt::StringLiterals;

namespace {

// What the start in the directory comes to when the user presses the button; an empty text when nobody is
// asked.
bool startsWith(const QString& directory, const QString& button) {
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&button] {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        for (auto* offered : box->buttons())
            if (offered->text() == button) offered->click();
    });
    user.start(10);
    return readyToStart(directory);
}

int evaluatorsIn(const QString& directory) {
    Connection connection;
    openDatabaseFile(connection, directory + u"/DB/Hollin.mdb"_s);
    return Recordset(connection, u"SELECT * FROM 評価者").recordCount();
}

TEST(FirstStart, MakesWhatTheUserChoosesAndAsksOnlyOnce) {
    const QTemporaryDir home;
    const QString directory = home.filePath(u"人 事;課/hollin"_s);
    EXPECT_FALSE(startsWith(directory, u"やめる"_s));
    EXPECT_FALSE(QFile::exists(directory));

    ASSERT_TRUE(startsWith(directory, u"例題で始める"_s));
    EXPECT_EQ(evaluatorsIn(directory), 5);
    EXPECT_TRUE(bytesOf(directory + u"/file/errmsg.txt"_s).contains("~2~"));
    EXPECT_TRUE(startsWith(directory, {}));

    // Message files that a user has edited outlive the database.
    writeWholeFile(directory + u"/file/message.txt"_s, "edited");
    QDir(directory).rename(u"DB"_s, u"old"_s);
    ASSERT_TRUE(startsWith(directory, u"空のデータベースで始める"_s));
    EXPECT_EQ(evaluatorsIn(directory), 1);
    EXPECT_EQ(bytesOf(directory + u"/file/message.txt"_s), "edited");

    // A database that was copied there alone gets them.
    const QString copy = home.filePath(u"copy"_s);
    QDir().mkpath(copy + u"/DB"_s);
    QFile::copy(directory + u"/DB/Hollin.mdb"_s, copy + u"/DB/Hollin.mdb"_s);
    EXPECT_TRUE(startsWith(copy, {}));
    EXPECT_TRUE(QFile::exists(copy + u"/file/survey.txt"_s));
}

} // namespace
