// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/bids/BidsNames.h"

#include <QHash>
#include <QSet>

namespace {

using namespace Qt::Literals::StringLiterals;

QString subjectOf(const Examination &examination)
{
    return examination.subjectId.isEmpty() ? examination.baseName : examination.subjectId;
}

/// One label for each subject, no label for two.
class SubjectLabels {
public:
    QString labelOf(const QString &subject, QStringList &remarks)
    {
        const auto known = m_labels.constFind(subject);
        if (known != m_labels.constEnd())
            return *known;
        const QString plain = bidsLabel(subject);
        const QString wanted = plain.isEmpty() ? u"subject"_s : plain;
        QString label = wanted;
        // On some systems files that differ in case alone are one.
        for (int number = 2; m_taken.contains(label.toLower()); ++number)
            label = u"%1x%2"_s.arg(wanted).arg(number);
        m_taken << label.toLower();
        m_labels.insert(subject, label);
        if (label != subject)
            remarks << u"Subject \"%1\" is sub-%2: labels have letters and digits only, and each subject its own."_s
                           .arg(subject, label);
        return label;
    }

private:
    QHash<QString, QString> m_labels; ///< by subject
    QSet<QString> m_taken;            ///< labels in lower case
};

QString taskOf(const Examination &examination)
{
    const QString label = bidsLabel(examination.properties.value(u"task"_s));
    return label.isEmpty() ? u"viewing"_s : label;
}

} // namespace

QString BidsName::folder() const
{
    return u"sub-%1/beh/"_s.arg(subject);
}

QString BidsName::stem() const
{
    return u"sub-%1_task-%2_run-%3"_s.arg(subject, task, QString::number(run));
}

QString bidsLabel(const QString &text)
{
    QString label;
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if ((code >= u'0' && code <= u'9') || (code >= u'A' && code <= u'Z') || (code >= u'a' && code <= u'z'))
            label += character;
    }
    return label;
}

BidsNames bidsNames(const QList<const Examination *> &examinations)
{
    BidsNames made;
    SubjectLabels labels;
    QHash<QString, int> runs;
    for (const Examination *examination : examinations) {
        BidsName name{labels.labelOf(subjectOf(*examination), made.remarks), taskOf(*examination)};
        name.run = ++runs[name.subject + u' ' + name.task];
        made.names << name;
    }
    return made;
}
