// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAFILE_H
#define RAWIFI_RAFILE_H

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

// Files in directories that every process may write: only regular files are opened, links are not followed,
// and nothing waits (a FIFO is refused, not opened).

struct RaFileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
typedef std::unique_ptr<std::FILE, RaFileCloser> RaFile;

/** Opens an existing regular file; null when it is none or cannot be opened. */
RaFile raOpenForReading(const char* path);

/** As raOpenForReading(), but fails also when the file may not be written ("r+"). */
RaFile raOpenForUpdate(const char* path);

/** Opens a regular file for appending, or creates it with mode 0600; null when it cannot. */
RaFile raOpenForAppending(const char* path);

/** Creates a file with mode 0600 in place of whatever file or link is there, and opens it; null when it cannot. */
RaFile raCreateAnew(const char* path);

/**
 * Before a command writes to \a path: takes away what stands there unless it is a regular file without another name,
 * so that the shell neither writes through a link nor waits for the reader of a pipe. A directory stays.
 */
void raClearForWriting(const char* path);

/**
 * Replaces a file's content so that it holds either the old or the new bytes, whatever happens: temporary file
 * in the same directory (the path and ".tmp"), mode 0600, locked (flock(2)), write, fsync, rename, fsync of the
 * directory. Of two processes at once one waits for the other, five seconds at most.
 * Returns false with the old file untouched and one log line that says what failed.
 */
bool raReplaceFile(const char* path, const void* bytes, std::size_t size);

/**
 * The two halves of raReplaceFile(), for what has to happen between them. The temporary file goes with the object,
 * also when a cancellation unwinds it.
 */
class RaReplacement
{
public:
    /** Writes and flushes the temporary file. */
    RaReplacement(const char* path, const void* bytes, std::size_t size);
    ~RaReplacement();
    RaReplacement(const RaReplacement&) = delete;
    RaReplacement& operator=(const RaReplacement&) = delete;

    /** 0 when the temporary file is complete and on the disk; else the errno of what failed. */
    int error() const { return m_error; }

    /** Lets it take the file's place: 0 or an errno. Only when error() is 0. */
    int complete();

private:
    const std::string m_path;
    const std::string m_temporary;
    const RaFile m_file; // open, since its lock goes with it
    int m_error = 0;
};

/**
 * Fills a regular file, which keeps its place, anew; its mode becomes 0600. Where a file cannot be replaced: what was
 * in it is lost when this fails. False, and one line in the log, when it does.
 */
bool raRewriteFile(const char* path, const void* bytes, std::size_t size);

#endif
