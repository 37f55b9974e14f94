// SPDX-License-Identifier: GPL-3.0-or-later
#include "correction-example/CorrectionExample.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QString problem = correctionexample::average(QCoreApplication::arguments().mid(1));
    if (problem.isEmpty())
        return 0;
    std::fputs(qPrintable(problem + u'\n'), stderr);
    return 1;
}
