// The encrypted database file as a file: made, verified, copied. Work on its contents is Connection's.
#pragma once

#include <QString>
#include <QStringList>

// A file that gets its name only when it is whole: it is written under a temporary name in the same folder,
// mode 0600, and removed again unless it was published.
class NewFile {
  public:
    // Raises error 75 when `target` exists, when a crash has left a journal of that name, or when the folder
    // cannot be written, 76 when the folder is missing.
    explicit NewFile(const QString& target);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    const QString& temporaryPath() const { return temporaryPath_; }
    // Gives the file its name. Raises error 75 when a file of that name has appeared meanwhile; that one
    // stays.
    void publish();

  private:
    QString target_;
    QString temporaryPath_;
    bool published_ = false;
};

// Makes an encrypted database without tables: a new file of mode 0600, or in a file that is still empty.
// Raises error 75 for a file with contents.
void createEncryptedDatabase(const QString& path, const QString& password);

// What the engine finds wrong with the file, page by page: empty when it is sound. Raises a database error
// when it cannot be opened with the password.
QStringList databaseFaults(const QString& path, const QString& password);

// Copies the database as it stands between two units of work, also while the program has it open, into the
// file `copy`, encrypted with the same password.
void copyDatabase(const QString& path, const NewFile& copy, const QString& password);
