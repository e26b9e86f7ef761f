// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_DECLAREDMETHODS_H
#define RAWIFI_DECLAREDMETHODS_H

#include <QByteArray>
#include <QList>
#include <QMetaMethod>

/**
 * The signals and slots that a class itself declares, in their order, as "signal NAME(TYPES) NAMES"; behind a
 * form that leaves out parameters with defaults stands " short".
 */
inline QList<QByteArray> declaredMethods(const QMetaObject& meta)
{
    QList<QByteArray> methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const QByteArray kind = method.methodType() == QMetaMethod::Signal ? "signal " : "slot ";
        methods << kind + method.methodSignature() + ' ' + method.parameterNames().join(',')
                       + (method.attributes() & QMetaMethod::Cloned ? " short" : "");
    }
    return methods;
}

#endif
