#pragma once
// The file system as the program sees it. Paths are what the shared state holds: a drive letter, a colon, backslashes
// and names; only the implementation knows what they are on the system underneath. Every failure of a file operation
// is thrown as RuntimeFailure{FailureKind::file}; nothing is half done silently.
//
// Names are looked up without regard to case when no entry matches exactly, so "K" and "k" in front of a name are one
// file: readers and writers of item definition files spell the letter differently.

#include "platform/text.h"

#include <cstdint>
#include <memory>
#include <vector>

/// A file open in random access, closed by its destructor. It stays bound to the file that was opened.
class RandomFile {
public:
    virtual ~RandomFile() = default;
    /// Length in bytes, asked afresh from the system at every call.
    virtual std::int64_t length() = 0;
    /// Reads up to `count` bytes from the 0-based byte `offset` into `into`. Returns how many came; fewer than asked
    /// for only at the end of the file.
    virtual std::size_t readAt(std::int64_t offset, char* into, std::size_t count) = 0;
    /// Writes all of `bytes` at the 0-based byte `offset` and returns when they are safely on the disk. Fails if the
    /// file is open for reading only, or if its path no longer names this very file. A write that fails gives the file its
    /// old bytes and its old length back, as far as the disk still lets it.
    virtual void writeDurably(std::int64_t offset, BytesView bytes) = 0;
    /// True if the path with which it was opened still names this very file, and not another one or none.
    virtual bool isInPlace() = 0;
};

/// A file open for one run over many records. Reads come from blocks read ahead and see what was written before;
/// writes go behind in blocks that are pushed to the disk little by little, so that the wait at the end is short. What
/// writeDurably promises holds once finish has returned: until then any part of what was written may be missing, even
/// the name of a new file, and after a failure what the file holds is undefined.
class BulkFile : public RandomFile {
public:
    /// Writes out what is still held back and returns when everything is safely on the disk. Fails if the path no
    /// longer names this very file.
    virtual void finish() = 0;
    /// Writes out what is still held back, without waiting for the disk: for a file that Files::moveIntoPlace is to make
    /// safe. Fails if the path no longer names this very file.
    virtual void handOver() = 0;
};

/// The claim of this program on a table; other running copies can't open the table while it is held. Released by its
/// destructor; the claim of a program that has died doesn't count.
class TableLock {
public:
    virtual ~TableLock() = default;
};

/// What a folder holds, hidden entries left out, each list in the order of the names without regard to case.
struct FolderContents {
    std::vector<Text> folders; ///< names to be put behind a path as they are; the folder above is not among them
    std::vector<Text> files;
};

/// Files, folders and drives.
class Files {
public:
    virtual ~Files() = default;
    /// The folder in which the program was started, in drive-letter form and without regard to a "\" at its end.
    virtual Text currentFolder() = 0;
    /// Turns the text of the command line into a path of the program: a path that begins with "/" becomes one on drive
    /// C (and a "\" in it is part of a name), in any other text each "/" becomes "\".
    virtual Text fromCommandLine(const Text& argument) = 0;
    /// True if `path` names an existing file or folder.
    virtual bool exists(const Text& path) = 0;
    /// True if both paths lead to one existing file or folder, whatever drive letter, spelling or link leads there.
    virtual bool isSameFile(const Text& one, const Text& other) = 0;
    /// Opens a file for reading and writing in random access and makes it if it doesn't exist; one that may not be
    /// written is opened for reading. A folder or a device is a failure.
    virtual std::unique_ptr<RandomFile> openRandom(const Text& path) = 0;
    /// The same for one run over many records. A file that is there already is not emptied.
    virtual std::unique_ptr<BulkFile> openBulk(const Text& path) = 0;
    /// All bytes of a file. A file of more than `limit` bytes is a failure.
    virtual Bytes readWhole(const Text& path, std::size_t limit) = 0;
    /// Makes `contents` the whole contents of the file, new or existing. Killed at any moment it leaves the old
    /// contents or the new ones; it returns when the new ones are safely on the disk.
    virtual void replaceWhole(const Text& path, BytesView contents) = 0;
    /// Fails as replaceWhole of `path` would, as far as that can be known beforehand: a folder or a device stands there, or
    /// the file or its folder may not be written. For whoever must not begin what such a failure would cut in two.
    virtual void expectReplaceable(const Text& path) = 0;
    /// Copies a file over another or to a new name. Killed at any moment it leaves the old contents or the new ones.
    virtual void copy(const Text& from, const Text& to) = 0;
    /// Claims the table at `path`. Null if another running copy holds it. A claim that this program already holds is
    /// shared; a file that doesn't exist yet or can't be opened, or a file system without locks, gives a claim that
    /// excludes nobody: the opening that follows tells why.
    virtual std::unique_ptr<TableLock> lockTable(const Text& path) = 0;
    /// Claims the folder at `path`, such as u"C:" for the drive's current folder: of several running copies only one can
    /// work in it. Null if another one does; otherwise as lockTable.
    virtual std::unique_ptr<TableLock> lockFolder(const Text& path) = 0;
    /// Puts the file `from` in the place of `to`, new or existing; afterwards nothing has the name `from`. Killed at any
    /// moment it leaves the old file at `to` or the new one, and returns when that is safely on the disk. From another
    /// disk the bytes are copied to ".new-" and the name of `to`, beside it, first: that file, or `from` beside the new
    /// `to`, may outlast a kill. The new file keeps the permissions of the old one.
    /// Returns the claim on the new file, made before it gets the name, so that the name is never unclaimed.
    virtual std::unique_ptr<TableLock> moveIntoPlace(const Text& from, const Text& to) = 0;
    /// Deletes a file. A file that doesn't exist, or a folder, is a failure.
    virtual void remove(const Text& path) = 0;
    /// Deletes from a folder what killed programs have left there in the middle of replaceWhole or copy; what a running
    /// program is writing stays.
    virtual void removeLeftovers(const Text& folder) = 0;
    /// Makes a folder. One that exists already, or whose parent doesn't, is a failure.
    virtual void makeFolder(const Text& path) = 0;
    /// The letters of the drives there are now, in order. Media mounted since the last call have got letters of their
    /// own; a letter once given keeps its folder.
    virtual std::vector<Text> drives() = 0;
    /// What the folder at `path` holds.
    virtual FolderContents folderContents(const Text& path) = 0;
};
