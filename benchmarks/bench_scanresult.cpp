// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// What does reading a scan result cost beyond reading its lines, in time and in memory?

#include "figure.h"

#include <rawificontrol.h>

#include <QApplication>
#include <cstdio>
#include <malloc.h>

// The commands around the reading are left out: no shell, and the answer file stays for the next round.
extern "C" int system(const char*)
{
    return 0;
}

namespace {

const int lineCount = 10000;
const char answer[] = "/home/wifi/temp.txt";
const char marker[] = "/home/wifi/result3";

bool writeScanResult()
{
    std::FILE* file = std::fopen(answer, "w");
    if (!file) {
        return false;
    }
    for (int i = 0; i < lineCount; ++i) {
        std::fprintf(file, "02:00:00:%02x:%02x:%02x\t2412\t%d\t[WPA2-PSK-CCMP][WPS][ESS]\tNetwork number %d\n",
                     i >> 16 & 255, i >> 8 & 255, i & 255, i % 100, i);
    }
    std::fclose(file);
    file = std::fopen(marker, "w");
    if (file) {
        std::fclose(file);
    }
    return file != nullptr;
}

void readLines()
{
    std::FILE* file = std::fopen(answer, "r");
    char line[256];
    while (std::fgets(line, sizeof line, file)) {
    }
    std::fclose(file);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (!writeScanResult()) {
        std::fprintf(stderr, "cannot write %s\n", answer);
        return 1;
    }
    RaWifiService service(1, nullptr);

    const std::size_t before = mallinfo2().uordblks;
    service.loadAPList();
    const double memory = static_cast<double>(mallinfo2().uordblks - before) / lineCount;
    if (service.getwifilistcount() != lineCount) {
        std::fprintf(stderr, "%d of %d lines read\n", service.getwifilistcount(), lineCount);
        return 1;
    }

    const double floor = medianNanoseconds(31, readLines) / lineCount / 1000.0;
    const double load = medianNanoseconds(31, [&service] { service.loadAPList(); }) / lineCount / 1000.0;
    std::printf("a line by bare fgets %.3f us, by loadAPList %.3f us\n", floor, load);
    printFigure("scan result: a line beyond bare fgets", load - floor, 1.0, "us");
    printFigure("scan result: memory of an access point", memory, sizeof(APData) + 64.0, "bytes");
    return 0;
}
