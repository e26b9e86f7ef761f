// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_LINEREADER_H
#define RAWIFI_LINEREADER_H

#include <cstdio>

const int lineSize = 256; ///< a line's buffer: 255 characters and a NUL

/** Drops the line break at the end of a line, if there is one; anything else stays. Returns the new length. */
int cutLineBreak(char* line);

/** Reads a result file line by line: lines longer than 255 characters are cut, and so is a file at its limit. */
class LineReader
{
public:
    enum Limit : long {
        statusLimit = 64L * 1024,     ///< bytes of a status file; the supplicant's are below one KiB
        scanLimit = 16L * 1024 * 1024 ///< bytes of a scan result: more than 65,000 lines of full length
    };

    /** \a file is not owned. */
    LineReader(std::FILE* file, Limit limit);

    /** The next line with its line break, valid until the next call; null at the end or at the limit. */
    char* next();

private:
    void skipRestOfLine();

    std::FILE* m_file;
    long m_left;
    char m_line[lineSize] = {};
};

#endif
