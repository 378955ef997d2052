// Files that appear whole: what bears a file's name has been on the disk from its first byte to its last.
#pragma once

#include <QByteArray>
#include <QString>

// A file that is written under a temporary name in the folder of its own and gets its name at the end, mode
// 0600. Unless it was given one, it is removed again.
class NewFile {
  public:
    // Raises error 76 when the folder of `target` is missing, 75 when it cannot be written.
    explicit NewFile(const QString& target);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    const QString& temporaryPath() const { return temporaryPath_; }
    // Raises error 75 when there is no room.
    void write(const QByteArray& bytes) const;

    // Each of these puts the contents, then the name on the disk; a power cut afterwards takes nothing back.
    // They raise error 75 when the disk refuses.
    //
    // Raises error 75, too, when a file of that name has appeared meanwhile; that one stays.
    void publish();
    // Under another name in the same folder; false when it is taken.
    bool publishAs(const QString& path);
    // In the place of an older file, whose mode it keeps. What only looks like a file (a device, a pipe) or
    // may not be written stays: error 75.
    void replace();

  private:
    void syncContents() const;

    QString target_;
    QString temporaryPath_;
    int handle_ = -1; // locked while the file has no name, so that nobody takes it for abandoned
    bool published_ = false;
};

// Removes from the folder what a program that was killed has left of such files.
void removeAbandonedFiles(const QString& folder);

// The bytes as a file, in the place of an older one; that one stays as it was unless the whole new one is on
// the disk. Raises errors as above.
void writeWholeFile(const QString& path, const QByteArray& bytes);
