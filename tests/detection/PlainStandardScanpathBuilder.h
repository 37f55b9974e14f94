// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"
#include "detection/StandardScanpathBuilder.h"
#include "model/EyeData.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

/// The standard detector in its plain form, as a second opinion: lists of records, a sort of the whole window for every
/// question, nothing remembered. Shares with the real one the section records only.
class PlainStandardScanpathBuilder {
public:
    PlainStandardScanpathBuilder(EyeData &target, const StandardParameters &parameters)
        : m_target(target)
        , m_parameters(parameters)
    {
        prepare();
        m_report = runLine(QStringLiteral("before"), [](const Record &r) { return !r.source.validFlag; }) +
                   runLine(QStringLiteral("after"), [](const Record &r) { return !r.usable; });
        for (const Record &record : m_records) {
            if (m_state == State::Growing) {
                if (durationOf(m_window) < parameters.minimumDurationMs)
                    messages::critical(QStringLiteral("Fixation too short!"),
                                       QStringLiteral("Fixation calculation invariant violated!"));
                if (!fits(m_window))
                    messages::critical(QStringLiteral("Fixation with too many outliers!"),
                                       QStringLiteral("Fixation calculation invariant violated!"));
            }
            if (record.usable)
                addValid(&record);
            else
                addInvalid(&record);
        }
        finish();
        target.calculationInfo = QStringLiteral("Calculated with: MinimumDuration=") +
                                 QString::number(parameters.minimumDurationMs) + QStringLiteral("ms, MaximumRadius=") +
                                 QString::number(parameters.maximumRadiusPx) + QStringLiteral(", AllowedOutliers=") +
                                 QString::number(parameters.allowedOutliers);
        reportSections();
    }

    QString report() const { return m_report; }

private:
    struct Record {
        GazePoint source;
        double x;
        double y;
        bool usable;
    };
    using List = std::vector<const Record *>;
    enum class State { Searching, Shifting, Growing, InsideInvalid };

    // --- preparation: both neighbours are searched anew for every sample -------------------------------------------

    void prepare()
    {
        const QList<GazePoint> &raw = std::as_const(m_target.gazePoints);
        for (qsizetype i = 0; i < raw.size(); ++i) {
            if (raw[i].validFlag) {
                m_records.push_back({raw[i], raw[i].x, raw[i].y, true});
                continue;
            }
            qsizetype right = i;
            while (right < raw.size() && !raw[right].validFlag)
                ++right;
            qsizetype left = i;
            while (left >= 0 && !raw[left].validFlag)
                --left;
            const qint64 end = raw[std::min(right, raw.size() - 1)].time;
            if (end - raw[std::max(left, qsizetype(0))].time > 20)
                m_records.push_back({raw[i], raw[i].x, raw[i].y, false});
            else
                m_records.push_back(interpolated(raw, i, left, right));
        }
    }

    static Record interpolated(const QList<GazePoint> &raw, qsizetype i, qsizetype left, qsizetype right)
    {
        const bool hasLeft = left >= 0;
        const bool hasRight = right < raw.size();
        if (!hasLeft && !hasRight) {
            messages::warning(QStringLiteral("All samples are invalid."),
                              QStringLiteral("Your data seems to contain not a single valid sample."));
            return {raw[i], 0, 0, true};
        }
        if (!hasLeft)
            return {raw[i], raw[right].x, raw[right].y, true};
        if (!hasRight || raw[right].time == raw[left].time)
            return {raw[i], raw[left].x, raw[left].y, true};
        const auto gap = static_cast<double>(raw[right].time - raw[left].time);
        const auto part = static_cast<double>(raw[i].time - raw[left].time);
        return {raw[i], raw[left].x + (raw[right].x - raw[left].x) / gap * part,
                raw[left].y + (raw[right].y - raw[left].y) / gap * part, true};
    }

    // --- predicates --------------------------------------------------------------------------------------------------

    static qint64 durationOf(const List &list)
    {
        return list.empty() ? 0 : list.back()->source.time - list.front()->source.time;
    }

    bool isLongEnough() const { return !m_window.empty() && durationOf(m_window) >= m_parameters.minimumDurationMs; }

    static double medianOf(std::vector<double> values)
    {
        if (values.empty())
            return 0;
        std::sort(values.begin(), values.end(), [](double a, double b) {
            if (std::isnan(a))
                return false;
            return std::isnan(b) || a < b;
        });
        const size_t middle = values.size() / 2;
        return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
    }

    static std::pair<double, double> medianPoint(const List &list)
    {
        std::vector<double> x;
        std::vector<double> y;
        for (const Record *record : list) {
            x.push_back(record->x);
            y.push_back(record->y);
        }
        return {medianOf(x), medianOf(y)};
    }

    bool isOutlier(const Record *record, std::pair<double, double> point) const
    {
        const double dx = record->x - point.first;
        const double dy = record->y - point.second;
        const double distance = std::sqrt(dx * dx + dy * dy);
        return std::isnan(distance) || distance > m_parameters.maximumRadiusPx;
    }

    bool fits(const List &list) const
    {
        const auto point = medianPoint(list);
        int outliers = 0;
        for (const Record *record : list)
            outliers += isOutlier(record, point) ? 1 : 0;
        return outliers <= m_parameters.allowedOutliers;
    }

    template <class Iterator>
    int outliersInARow(const List &list, Iterator record) const
    {
        const auto point = medianPoint(list);
        const int limit = std::min(static_cast<int>(list.size()), m_parameters.allowedOutliers);
        int count = 0;
        for (; count < limit && isOutlier(*record, point); ++record)
            ++count;
        return count;
    }
    int leadingOutliers(const List &list) const { return outliersInARow(list, list.begin()); }
    int trailingOutliers(const List &list) const { return outliersInARow(list, list.rbegin()); }

    // --- state machine -----------------------------------------------------------------------------------------------

    void addValid(const Record *record)
    {
        if (m_state == State::InsideInvalid) {
            closeInvalid();
            m_state = State::Searching;
            addValid(record);
        } else if (m_state == State::Searching) {
            m_window.push_back(record);
            if (!isLongEnough())
                return;
            if (!fits(m_window))
                m_state = State::Shifting;
            else
                m_state = leadingOutliers(m_window) == 0 ? State::Growing : State::Shifting;
        } else if (m_state == State::Shifting) {
            shift(record);
        } else {
            m_candidate = m_window;
            m_window.push_back(record);
            if (fits(m_window))
                return;
            m_state = State::Searching;
            flushSaccade();
            closeFixation();
            m_window.push_back(record);
        }
    }

    void shift(const Record *record)
    {
        for (;;) {
            m_pendingSaccade.push_back(m_window.front());
            m_window.erase(m_window.begin());
            if (!isLongEnough())
                break;
            if (fits(m_window) && leadingOutliers(m_window) == 0) {
                m_state = State::Growing;
                addValid(record);
                return;
            }
        }
        m_window.push_back(record);
        if (fits(m_window) && leadingOutliers(m_window) == 0)
            m_state = isLongEnough() ? State::Growing : State::Searching;
        else
            m_state = isLongEnough() ? State::Shifting : State::Searching;
    }

    void addInvalid(const Record *record)
    {
        m_pendingInvalid.push_back(record);
        if (m_state == State::Searching || m_state == State::Shifting) {
            m_pendingSaccade.insert(m_pendingSaccade.end(), m_window.begin(), m_window.end());
            m_window.clear();
            flushSaccade();
        } else if (m_state == State::Growing) {
            flushSaccade();
            m_candidate = m_window;
            m_window.clear();
            closeFixation();
        }
        m_state = State::InsideInvalid;
    }

    void flushSaccade()
    {
        if (m_pendingSaccade.empty())
            return;
        m_target.saccades << Saccade(pointsOf(m_pendingSaccade), QStringLiteral("saccade"), m_sectionCounter++,
                                     nullptr);
        m_lastSectionWasSaccade = true;
        m_pendingSaccade.clear();
    }

    void closeInvalid()
    {
        if (m_pendingInvalid.empty())
            return;
        const QString dot = QStringLiteral(".");
        m_target.eventRows << EventRow{QStringLiteral("invalid"),
                                       QStringLiteral("2"),
                                       QString::number(m_pendingInvalid.size()),
                                       QString::number(m_pendingInvalid.front()->source.time),
                                       QString::number(static_cast<int>(durationOf(m_pendingInvalid))),
                                       dot,
                                       dot,
                                       dot,
                                       dot,
                                       dot,
                                       dot};
        m_target.invalids << Invalid(pointsOf(m_pendingInvalid), QStringLiteral("invalid"), m_sectionCounter++,
                                     nullptr);
        m_lastSectionWasSaccade = false;
        m_pendingInvalid.clear();
    }

    void closeFixation()
    {
        if (m_candidate.empty())
            return;
        List removed;
        for (int t = trailingOutliers(m_candidate); t > 0; --t) {
            removed.push_back(m_candidate.back());
            m_candidate.pop_back();
        }
        const int leading = leadingOutliers(m_candidate);
        if (leading > 0) {
            giveToSaccade({m_candidate.begin(), m_candidate.begin() + leading});
            m_candidate.erase(m_candidate.begin(), m_candidate.begin() + leading);
        }
        const bool isFixation =
            !m_candidate.empty() && durationOf(m_candidate) >= m_parameters.minimumDurationMs && fits(m_candidate);
        if (isFixation) {
            m_target.scanpath << Fixation(pointsOf(m_candidate), QStringLiteral("fixation"), centroidOf(m_candidate),
                                          m_fixationCount++);
            const int found = m_target.scanpath.last().duration();
            if (found < m_parameters.minimumDurationMs) // a duration of more than 31 bits
                messages::critical(QStringLiteral("Fixation too short!"),
                                   QStringLiteral("Fixation calculation has an error! Length found:") +
                                       QString::number(found));
            ++m_sectionCounter;
            m_lastSectionWasSaccade = false;
        } else {
            giveToSaccade(m_candidate);
        }
        m_candidate.clear();
        m_window.clear();
        m_state = State::Searching;
        for (const Record *record : removed)
            addValid(record);
    }

    void giveToSaccade(const List &list)
    {
        if (m_target.saccades.isEmpty() || !m_lastSectionWasSaccade) {
            m_pendingSaccade = list;
            flushSaccade();
        } else if (!list.empty()) {
            m_target.saccades.last().extend(pointsOf(list));
        }
    }

    void finish()
    {
        if (m_state == State::Searching || m_state == State::Shifting) {
            m_pendingSaccade.insert(m_pendingSaccade.end(), m_window.begin(), m_window.end());
            m_window.clear();
            flushSaccade();
        } else if (m_state == State::Growing) {
            flushSaccade();
            m_candidate = m_window;
            m_window.clear();
            closeFixation();
        } else {
            closeInvalid();
        }
    }

    static QList<GazePoint> pointsOf(const List &list)
    {
        QList<GazePoint> points;
        for (const Record *record : list)
            points << record->source;
        return points;
    }

    static QPoint centroidOf(const List &list)
    {
        return {meanOf(list, [](const Record *r) { return r->x; }), meanOf(list, [](const Record *r) { return r->y; })};
    }

    template <class Axis>
    static int meanOf(const List &list, Axis axis)
    {
        qint64 sum = 0;
        for (const Record *record : list) {
            const double total = static_cast<double>(sum) + axis(record);
            if (!std::isnan(total)) // beyond 64 bits the sum stays at 9.2e18
                sum = static_cast<qint64>(std::min(9.2e18, std::max(-9.2e18, total)));
        }
        const qint64 mean = sum / static_cast<qint64>(list.size());
        return static_cast<int>(std::min<qint64>(2147483647, std::max<qint64>(-2147483648, mean)));
    }

    // --- report ------------------------------------------------------------------------------------------------------

    template <class IsBad>
    QString runLine(const QString &when, IsBad isBad) const
    {
        qint64 r = 0;
        qint64 min = 0;
        qint64 max = 0;
        int count = 0;
        for (size_t i = 0; i < m_records.size(); ++i) {
            const qint64 step = i > 0 ? m_records[i].source.time - m_records[i - 1].source.time : 0;
            if (isBad(m_records[i])) {
                r += step;
                ++count;
            } else {
                r += r != 0 ? step : 0;
                max = std::max(max, r);
                if (min == 0 || (r != 0 && r < min))
                    min = r;
                r = 0;
            }
        }
        return QStringLiteral("Invalid ") + when + QStringLiteral(" processing: min ") + QString::number(min) +
               QStringLiteral("[ms] max ") + QString::number(max) + QStringLiteral("[ms] total# ") +
               QString::number(count) + u'\n';
    }

    template <class Section, class IsCounted>
    QString sectionLine(const QList<Section> &sections, const QString &kind, const QString &counted,
                        IsCounted isCounted) const
    {
        qint64 min = 0;
        qint64 max = 0;
        qint64 sum = 0;
        int count = 0;
        for (const Section &section : sections) {
            const int duration = section.duration();
            if (min == 0 || duration < min)
                min = duration;
            max = std::max<qint64>(max, duration);
            sum += duration;
            count += isCounted(section) ? 1 : 0;
        }
        return QString::number(sections.size()) + u' ' + kind + QStringLiteral(" durations: min ") +
               QString::number(min) + QStringLiteral("[ms], max ") + QString::number(max) +
               QStringLiteral("[ms], avg ") + QString::number(sections.isEmpty() ? 0 : sum / sections.size()) +
               QStringLiteral("[ms], ") + counted + QStringLiteral("# ") + QString::number(count) + u'\n';
    }

    void reportSections()
    {
        m_report += sectionLine(m_target.scanpath, QStringLiteral("Fixation"), QStringLiteral("overlong"),
                                [](const Fixation &f) { return f.duration() > 1000; });
        m_report += sectionLine(m_target.saccades, QStringLiteral("Saccade"), QStringLiteral("tooshort"),
                                [](const Saccade &s) { return s.samples.size() < 2; });
    }

    EyeData &m_target;
    StandardParameters m_parameters;
    std::vector<Record> m_records;
    State m_state = State::Searching;
    List m_window;
    List m_candidate;
    List m_pendingSaccade;
    List m_pendingInvalid;
    bool m_lastSectionWasSaccade = false;
    int m_sectionCounter = 1;
    int m_fixationCount = 0;
    QString m_report;
};
