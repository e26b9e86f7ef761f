// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rafile.h"

#include "ralog.h"

#include <cerrno>
#include <cstring>
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

bool isWhatStandsAt(const char* path, int descriptor)
{
    struct stat own;
    struct stat there;
    return fstat(descriptor, &own) == 0 && lstat(path, &there) == 0 && there.st_dev == own.st_dev
           && there.st_ino == own.st_ino;
}

/**
 * The temporary file, empty and locked: whoever else replaces the same file, in this process or another, waits until
 * this one has taken its place or is gone. On a file system without locks it is as if there were nobody else.
 */
RaFile lockedTemporary(const char* path)
{
    const int attempts = 10000; // each lost to another replacement
    for (int i = 0; i < attempts; ++i) {
        raClearForWriting(path);
        const int descriptor = open(path, O_WRONLY | O_CREAT | safeFlags, 0600);
        if (descriptor == -1) {
            return RaFile();
        }
        while (flock(descriptor, LOCK_EX) == -1 && errno == EINTR) { // a signal of the host's
        }
        if (isWhatStandsAt(path, descriptor)) {
            RaFile file = streamOf(descriptor, "w");
            if (!file || fchmod(descriptor, 0600) == -1 || ftruncate(descriptor, 0) == -1) {
                unlink(path);
                file.reset();
            }
            return file;
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
    unlink(path);
    return streamOf(open(path, O_WRONLY | O_CREAT | O_EXCL | safeFlags, 0600), "w");
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
    if (m_file && !m_isInPlace) {
        unlink(m_temporary.c_str());
    }
}

int RaReplacement::complete()
{
    if (std::rename(m_temporary.c_str(), m_path.c_str()) == -1) {
        return errno;
    }
    m_isInPlace = true;
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
