// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestLog.h"
#include "TestSettings.h"
#include "visualization/parameters/VisualizationCommands.h"

#include <QTest>
#include <QUndoStack>

namespace {

AdjustableColorMap mapBefore()
{
    AdjustableColorMap map;
    map.stops = {{{true, 10, 0.1, QColor(1, 1, 1)},
                  {true, 20, 0.2, QColor(2, 2, 2)},
                  {false, 30, 0.305, QColor(3, 3, 3)}, // sliders cannot show it; undo brings it back all the same
                  {false, 40, 0.4, QColor(4, 4, 4)}}};
    return map;
}

AdjustableColorMap mapAfter()
{
    AdjustableColorMap map;
    map.stops = {{{false, 50, 0.5, QColor(5, 5, 5)},
                  {false, 60, 0.6, QColor(6, 6, 6)},
                  {true, 70, 0.7, QColor(7, 7, 7)},
                  {true, 80, 0.8, QColor(8, 8, 8)}}};
    return map;
}

/// The sixteen values, kind by kind.
QString storedValues(const QString &path)
{
    QStringList values;
    for (const char *key : {"acti", "trans", "start_p", "start_c"}) {
        for (int i = 1; i <= 4; ++i) {
            const QString name = QStringLiteral("%1/ACM_%2%3").arg(path, QString::fromLatin1(key)).arg(i);
            values << SettingsStore().value(name).toString();
        }
    }
    return values.join(u' ');
}

const char storedBefore[] = "true true false false 10 20 30 40 0.1 0.2 0.305 0.4 #010101 #020202 #030303 #040404";
const char storedAfter[] = "false false true true 50 60 70 80 0.5 0.6 0.7 0.8 #050505 #060606 #070707 #080808";

} // namespace

/// The change of the whole adjustable colour map; the commands of single parameters are tested over their rows.
class TestVisualizationCommands : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_settings.reset(); }
    void nothingHappensBeforeItRuns();
    void redoUndoRedo_data();
    void redoUndoRedo();
    void aStepHasOneTextAndOneCommand();
    void withoutALogNoLineIsWritten();

private:
    QStringList takeLogLines() const { return m_log->takeLines(); }
    auto show()
    {
        return [this](const AdjustableColorMap &map) { m_shown << map; };
    }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedLog> m_log;
    QList<AdjustableColorMap> m_shown;
};

void TestVisualizationCommands::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_log = std::make_unique<RecordedLog>();
    m_shown.clear();
}

void TestVisualizationCommands::nothingHappensBeforeItRuns()
{
    VisualizationParameters record = clusterParameters();
    const VisualizationParameters before = record;
    const CommandChangeAdjColorMap command(mapAfter(), record, show(), &m_log->log());
    QVERIFY(record == before);
    QVERIFY(SettingsStore().allKeys().isEmpty());
    QVERIFY(m_shown.isEmpty());
    QVERIFY(takeLogLines().isEmpty());
}

void TestVisualizationCommands::redoUndoRedo_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("Visualization/Gazepoint") << QStringLiteral("GazepointVisualization");
    QTest::newRow("Visualization/Fixation") << QStringLiteral("FixationVisualization");
    QTest::newRow("Visualization/Fixationcluster") << QStringLiteral("FixationclusterVisualization");
    QTest::newRow("Visualization/Saccade") << QStringLiteral("SaccadeVisualization");
}

void TestVisualizationCommands::redoUndoRedo()
{
    QFETCH(QString, name);
    const QString path = QString::fromLatin1(QTest::currentDataTag());
    VisualizationParameters record = loadedParameters(path, name);
    setAdjustableColorMap(record, mapBefore());
    CommandChangeAdjColorMap command(mapAfter(), record, show(), &m_log->log());
    const auto check = [&](const AdjustableColorMap &map, const char *stored, const char *line) {
        QVERIFY(record.colorMap == map);
        QCOMPARE(storedValues(path), QString::fromLatin1(stored));
        QCOMPARE(SettingsStore().allKeys().size(), 16);
        QVERIFY(m_shown.constLast() == map);
        QCOMPARE(takeLogLines(), QStringList(QString::fromLatin1(line)));
    };
    command.redo();
    check(mapAfter(), storedAfter, "CommandChangeAdjColorMap::redo = ");
    command.undo();
    check(mapBefore(), storedBefore, "CommandChangeAdjColorMap::undo = ");
    command.redo();
    check(mapAfter(), storedAfter, "CommandChangeAdjColorMap::redo = ");
    QCOMPARE(m_shown.size(), 3);
}

void TestVisualizationCommands::aStepHasOneTextAndOneCommand()
{
    VisualizationParameters record = clusterParameters();
    QUndoStack stack;
    stack.push(new CommandChangeAdjColorMap(mapBefore(), record, show(), &m_log->log()));
    stack.push(new CommandChangeAdjColorMap(mapAfter(), record, show(), &m_log->log()));
    QCOMPARE(stack.count(), 2); // commands never merge
    QCOMPARE(stack.text(0), QStringLiteral("Adjustible Colormap changed!"));
    QCOMPARE(stack.text(1), QStringLiteral("Adjustible Colormap changed!"));
    QCOMPARE(m_shown.size(), 2);
    stack.undo();
    QVERIFY(record.colorMap == mapBefore());
    stack.undo();
    QVERIFY(record.colorMap == AdjustableColorMap());
}

void TestVisualizationCommands::withoutALogNoLineIsWritten()
{
    VisualizationParameters record = clusterParameters();
    CommandChangeAdjColorMap command(mapAfter(), record, show(), nullptr);
    command.redo();
    command.undo();
    QCOMPARE(m_shown.size(), 2);
    QCOMPARE(takeLogLines(), QStringList());
}

QTEST_GUILESS_MAIN(TestVisualizationCommands)
#include "TestVisualizationCommands.moc"
