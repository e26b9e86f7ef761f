// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rafile.h"

#include "ralog.h"

#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const int safeFlags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

RaFile streamOf(int descriptor, const char* mode)
{
    struct stat about;
    if (descriptor != -1 && (fstat(descriptor, &about) == -1 || !S_ISREG(about.st_mode))) {
        close(descriptor);
        return RaFile();
    }
    RaFile file(descriptor == -1 ? nullptr : fdopen(descriptor, mode));
    if (descriptor != -1 && !file) {
        close(descriptor);
    }
    return file;
}

bool failed(const char* what, const char* path, int error)
{
    RA_WARN("%s %s: %s", what, path, std::strerror(error));
    return false;
}

bool isOnDisk(std::FILE* file, const void* bytes, std::size_t size)
{
    return std::fwrite(bytes, 1, size, file) == size && std::fflush(file) == 0 && fsync(fileno(file)) == 0;
}

enum class Standing { Own, Another, Unknown };

/** Whether the open file is what stands at \a path. */
Standing standingAt(const char* path, int descriptor)
{
    struct stat own;
    struct stat there;
    if (fstat(descriptor, &own) == -1 || lstat(path, &there) == -1) {
        return Standing::Unknown;
    }
    return there.st_dev == own.st_dev && there.st_ino == own.st_ino ? Standing::Own : Standing::Another;
}

bool isAnothers(int descriptor)
{
    return flock(descriptor, LOCK_EX | LOCK_NB) == -1 && (errno == EWOULDBLOCK || errno == EINTR);
}

/**
 * A temporary file of this process's own, locked: whoever else replaces the same file, in this process or another, waits
 * until this one has taken its place or is gone. On a file system without locks it is as if there were nobody else.
 */
RaFile lockedTemporary(const char* path)
{
    const int tries = 5000; // a millisecond apart while another one is at work
    for (int i = 0; i < tries; ++i) {
        raClearForWriting(path);
        int descriptor = open(path, O_WRONLY | O_CREAT | O_EXCL | safeFlags, 0600);
        const bool isNew = descriptor != -1;
        if (!isNew && errno == EEXIST) {
            descriptor = open(path, O_WRONLY | safeFlags);
            if (descriptor == -1 && errno == ENOENT) {
                continue; // it has taken its place
            }
        }
        if (descriptor == -1) {
            return RaFile();
        }
        if (isAnothers(descriptor)) {
            const timespec millisecond = {0, 1000000L};
            nanosleep(&millisecond, nullptr); // not to be cancelled, since this is a save
        } else if (standingAt(path, descriptor) == Standing::Own) {
            RaFile file(isNew ? fdopen(descriptor, "w") : nullptr);
            if (file) {
                return file;
            }
            unlink(path); // left by one that was killed
        }
        close(descriptor);
    }
    errno = EAGAIN;
    return RaFile();
}

bool flushDirectoryOf(const std::string& path)
{
    const std::string directory = path.substr(0, path.rfind('/') + 1);
    const int descriptor = open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor == -1) {
        return false;
    }
    const bool flushed = fsync(descriptor) == 0;
    close(descriptor);
    return flushed;
}

} // namespace

RaFile raOpenForReading(const char* path)
{
    return streamOf(open(path, O_RDONLY | safeFlags), "r");
}

RaFile raOpenForUpdate(const char* path)
{
    return streamOf(open(path, O_RDWR | safeFlags), "r+");
}

RaFile raOpenForAppending(const char* path)
{
    return streamOf(open(path, O_WRONLY | O_CREAT | O_APPEND | safeFlags, 0600), "a");
}

RaFile raCreateAnew(const char* path)
{
    const int tries = 100; // another process may do the same
    int descriptor = -1;
    for (int i = 0; i < tries && descriptor == -1; ++i) {
        unlink(path);
        descriptor = open(path, O_WRONLY | O_CREAT | O_EXCL | safeFlags, 0600);
        if (descriptor == -1 && errno != EEXIST) {
            break;
        }
    }
    return streamOf(descriptor, "w");
}

void raClearForWriting(const char* path)
{
    struct stat about;
    if (lstat(path, &about) == 0 && (!S_ISREG(about.st_mode) || about.st_nlink > 1)) {
        unlink(path);
    }
}

bool raReplaceFile(const char* path, const void* bytes, std::size_t size)
{
    RaReplacement replacement(path, bytes, size);
    if (replacement.error() != 0) {
        return failed("cannot write the new", path, replacement.error());
    }
    const int error = replacement.complete();
    return error == 0 || failed("cannot replace", path, error);
}

RaReplacement::RaReplacement(const char* path, const void* bytes, std::size_t size)
    : m_path(path),
      m_temporary(m_path + ".tmp"),
      m_file(lockedTemporary(m_temporary.c_str()))
{
    if (!m_file || !isOnDisk(m_file.get(), bytes, size)) {
        m_error = errno != 0 ? errno : EIO;
    }
}

RaReplacement::~RaReplacement()
{
    if (m_file && standingAt(m_temporary.c_str(), fileno(m_file.get())) == Standing::Own) {
        unlink(m_temporary.c_str());
    }
}

int RaReplacement::complete()
{
    if (standingAt(m_temporary.c_str(), fileno(m_file.get())) == Standing::Another) {
        return EAGAIN; // the own one was taken away meanwhile, and this may be half of another
    }
    if (std::rename(m_temporary.c_str(), m_path.c_str()) == -1) {
        return errno;
    }
    if (!flushDirectoryOf(m_path)) {
        failed("cannot flush the directory of", m_path.c_str(), errno); // in place; only its durability is in doubt
    }
    return 0;
}

bool raRewriteFile(const char* path, const void* bytes, std::size_t size)
{
    const RaFile file = streamOf(open(path, O_WRONLY | O_CREAT | safeFlags, 0600), "w");
    // Emptied only once it is known to be a regular file; the mode holds for a file that was there before, too.
    const bool written = file && fchmod(fileno(file.get()), 0600) == 0 && ftruncate(fileno(file.get()), 0) == 0
                         && isOnDisk(file.get(), bytes, size);
    return written || failed("cannot write", path, errno);
}
