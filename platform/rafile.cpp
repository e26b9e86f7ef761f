// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rafile.h"

#include "ralog.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
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
      m_temporary(m_path + ".tmp")
{
    const RaFile file = raCreateAnew(m_temporary.c_str());
    if (!file || !isOnDisk(file.get(), bytes, size)) {
        m_error = errno != 0 ? errno : EIO;
    }
}

RaReplacement::~RaReplacement()
{
    if (!m_isInPlace) {
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
