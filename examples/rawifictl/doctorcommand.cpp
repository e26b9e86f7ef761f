// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "commands.h"
#include "doctor.h"

namespace {

QJsonObject describe(const Finding& finding)
{
    QJsonObject object;
    object.insert(QLatin1String("subject"), finding.subject);
    object.insert(QLatin1String("ok"), finding.problem.isEmpty());
    object.insert(QLatin1String("problem"), finding.problem);
    object.insert(QLatin1String("advice"), finding.advice);
    return object;
}

void print(Output& output, const Finding& finding)
{
    if (finding.problem.isEmpty()) {
        output.line(output.painted(Output::Green, QLatin1String("ok     ")) + QLatin1Char(' ') + finding.subject);
        return;
    }
    output.line(output.painted(Output::Red, QLatin1String("PROBLEM")) + QLatin1Char(' ') + finding.subject
                + QLatin1Char(' ') + finding.problem);
    output.line(QLatin1String("        -> ") + finding.advice);
}

} // namespace

int doctorCommand(Output& output, const Arguments&)
{
    const QList<Finding> findings = scriptFindings() + directoryFindings() + secretFileFindings() + programFindings()
                                    + supplicantFindings() + interfaceFindings() + busFindings();
    bool healthy = true;
    QJsonArray list;
    for (const Finding& finding : findings) {
        print(output, finding);
        list.append(describe(finding));
        healthy = healthy && finding.problem.isEmpty();
    }
    output.document(list);
    return healthy ? Done : Failed;
}
