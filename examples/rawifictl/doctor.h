// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_DOCTOR_H
#define RAWIFICTL_DOCTOR_H

#include <QList>
#include <QString>

/** One thing that was looked at. */
struct Finding
{
    QString subject;
    QString problem; ///< empty: all is well
    QString advice;  ///< what to do about the problem
};

// Each looks at one side of the device, and changes nothing.
QList<Finding> scriptFindings();
QList<Finding> directoryFindings();
QList<Finding> secretFileFindings();
QList<Finding> programFindings();
QList<Finding> supplicantFindings();
QList<Finding> interfaceFindings();
QList<Finding> busFindings();

#endif
