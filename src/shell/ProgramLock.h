#pragma once
// One running program per program folder. The running copy holds an
// exclusive lock (flock) on pw.lock in the folder for as long as it runs, so
// the lock ends with the process however it ends, and the file names the
// computer and process that hold it. A folder where pw.lock cannot be made
// (read-only, full) is locked through a file in the user's runtime folder
// named after the folder instead; when neither can be made the program does
// not start: it never runs unlocked.
#include <string>

namespace pw {

struct LockOutcome {
    enum class Kind {
        Taken,         // this process holds the folder
        HeldHere,      // another copy runs on this computer
        HeldOnHost,    // the lock was written on another computer
        Failed,        // no lock could be made
    };
    Kind kind = Kind::Failed;
    std::string host;    // HeldOnHost: the computer named in the lock
    std::string reason;  // Failed: the system's reason, for the folder's lock
    std::string path;    // the lock file used or met
};

class ProgramLock {
public:
    ProgramLock() = default;
    ProgramLock(const ProgramLock&) = delete;
    ProgramLock& operator=(const ProgramLock&) = delete;
    ~ProgramLock();

    // Locks folder. A lock written on another computer is taken over only
    // with takeForeign (the user said that copy is not running); one whose
    // holder has ended on this computer is taken over at once.
    LockOutcome Take(const std::string& folder, bool takeForeign = false);
    // Removes the lock file and ends the lock; also done when destroyed.
    void Release();

    // The lock file used for folder when pw.lock cannot be made in it: in
    // runtimeFolder, named after the user and the folder's path.
    static std::string FallbackPath(const std::string& runtimeFolder, const std::string& folder);
    // This computer's name as locks record it.
    static std::string HostName();

private:
    LockOutcome TakeAt(const std::string& path, bool takeForeign);

    int fd_ = -1;
    std::string path_;
};

}  // namespace pw
