// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ImportFiles.h"
#include "import/panel/ImportAssistant.h"
#include "import/panel/LayoutForm.h"
#include "import/panel/SamplesView.h"
#include "import/TableTexts.h"

#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// The assistant with mouse and keys.
class TestImportAssistant : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_assistant.reset(); }
    void showsLinesChoicesAndResult();
    void choiceIsChangedByTheMouse();
    void columnIsChangedByKeys();
    void wrongTextIsTold();
    void importHandsOnWhatWasRead();
    void cancelClosesAndImportsNothing();
    void cancelStopsTheReading();
    void savedLayoutIsFoundAgain();
    void layoutThatCannotBeSavedIsTold();
    void layoutThatCannotBeReadIsTold();
    void layoutIsChosenFromTheList();
    void badNamesAreRefused();
    void filesAreAddedAndDropped();
    void nothingToImport();
    void previewIsDrawn();
    void slowReadingIsTold();

private:
    template <class Widget>
    Widget *find(const char *name) const
    {
        auto *widget = m_assistant->findChild<Widget *>(QLatin1StringView(name));
        if (!widget)
            qFatal("no %s", name);
        return widget;
    }
    void click(const char *button) const { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    QString text(const char *label) const { return find<QLabel>(label)->text(); }
    void open()
    {
        m_assistant = std::make_unique<ImportAssistant>(m_files->path(u"layouts"_s));
        m_assistant->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_assistant.get()));
    }
    /// Opens the list of a box and takes an entry with the keys.
    void choose(const char *name, const QString &entry) const
    {
        auto *box = find<QComboBox>(name);
        const int index = box->findText(entry);
        QVERIFY2(index >= 0, qPrintable(entry));
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        while (box->currentIndex() < index)
            QTest::keyClick(box, Qt::Key_Down);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->currentText(), entry);
    }

    std::unique_ptr<ImportFiles> m_files;
    std::unique_ptr<ImportAssistant> m_assistant;
    QString m_table;
};

void TestImportAssistant::init()
{
    qRegisterMetaType<QList<ImportedTable>>();
    m_files = std::make_unique<ImportFiles>();
    m_table = m_files->write(u"p01.csv"_s, tabletexts::table({}));
    open();
}

void TestImportAssistant::showsLinesChoicesAndResult()
{
    m_assistant->add({m_table});
    QVERIFY(find<QListWidget>("files")->item(0)->text().startsWith(u"p01.csv (ready"_s));
    QVERIFY(find<QPlainTextEdit>("lines")->toPlainText().startsWith(u"time_ms,left_x_px"_s));
    QCOMPARE(find<QComboBox>("delimiter")->currentText(), u"comma"_s);
    QCOMPARE(find<QComboBox>("time.column")->currentText(), u"time_ms"_s);
    QVERIFY(find<QLabel>("certainty of delimiter")->text().endsWith(u" %"_s));
    QVERIFY(!find<QLabel>("certainty of delimiter")->toolTip().isEmpty());
    QVERIFY(text("recordings").contains(u"500 samples, 250 Hz"_s));
    QVERIFY(!find<QComboBox>("messages.begin")->isVisible()); // of logs only
    QVERIFY(find<QPushButton>("import")->isEnabled());
}

void TestImportAssistant::choiceIsChangedByTheMouse()
{
    m_assistant->add({m_table});
    auto *box = find<QComboBox>("time.unit");
    box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(box->view()->window()));
    const QModelIndex entry = box->model()->index(box->findText(u"us"_s), 0);
    box->view()->scrollTo(entry);
    QTest::mouseClick(box->view()->viewport(), Qt::LeftButton, {}, box->view()->visualRect(entry).center());
    QTRY_COMPARE(m_assistant->session().tables()[0].layout.timeUnit, TableTimeUnit::Microseconds);
    QVERIFY2(text("recordings").contains(u"2.5e+05 Hz"_s), qPrintable(text("recordings")));
    QVERIFY(!find<QPlainTextEdit>("oddities")->toPlainText().isEmpty());
    QCOMPARE(find<QLabel>("certainty of time.unit")->text(), QString()); // the user's word
}

void TestImportAssistant::columnIsChangedByKeys()
{
    m_assistant->add({m_table});
    auto *box = find<QComboBox>("left.pupil");
    box->lineEdit()->setFocus();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), u"right_x_px"_s);
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    QCOMPARE(m_assistant->session().tables()[0].layout.left.pupil, TableColumn::named(u"right_x_px"_s));
    QVERIFY(m_assistant->isVisible());
}

void TestImportAssistant::wrongTextIsTold()
{
    m_assistant->add({m_table});
    auto *line = find<QLineEdit>("place.screenPx");
    const QString before = line->text();
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, u"wide"_s);
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(text("note"), u"\"wide\" is nothing for Screen [px]: Width x height, such as 1920 x 1080."_s);
    QCOMPARE(line->text(), before);
}

void TestImportAssistant::importHandsOnWhatWasRead()
{
    m_assistant->add({m_table, m_files->write(u"p02.csv"_s, tabletexts::table({.samples = 300})),
                      m_files->write(u"words.csv"_s, "word,letters\nthe,3\nfox,3\n")});
    QSignalSpy imported(m_assistant.get(), &ImportAssistant::imported);
    click("import");
    QVERIFY(imported.wait());
    const auto tables = imported[0][0].value<QList<ImportedTable>>();
    QCOMPARE(tables.size(), 3);
    QVERIFY(tables[2].recordings.isEmpty());
    QVERIFY(tables[2].messages.value(0).text.contains(u"words.csv"_s)); // who misses it is told
    QCOMPARE(tables[0].recordings.size(), 1);
    QCOMPARE(tables[0].recordings[0].examination.leftEye.gazePoints.size(), 500);
    QCOMPARE(tables[0].recordings[0].examination.baseName, u"p01"_s);
    QCOMPARE(tables[1].recordings[0].examination.duration(), 299 * 4);
    QVERIFY(!m_assistant->isVisible());
}

void TestImportAssistant::cancelClosesAndImportsNothing()
{
    m_assistant->add({m_table});
    QSignalSpy imported(m_assistant.get(), &ImportAssistant::imported);
    click("cancel");
    QVERIFY(!m_assistant->isVisible());
    QCOMPARE(imported.size(), 0);
}

void TestImportAssistant::cancelStopsTheReading()
{
    m_assistant->add({m_files->write(u"long.csv"_s, tabletexts::table({.samples = 1'500'000}))});
    QSignalSpy imported(m_assistant.get(), &ImportAssistant::imported);
    click("import");
    QVERIFY(find<QProgressBar>("progress")->isVisible());
    QVERIFY(!find<QPushButton>("import")->isEnabled());
    click("cancel");
    QCOMPARE(text("note"), u"The import was stopped; nothing was imported."_s);
    QVERIFY(m_assistant->isVisible());
    QVERIFY(find<QPushButton>("import")->isEnabled());
    QVERIFY(!find<QProgressBar>("progress")->isVisible());
    QTest::qWait(200);
    QCOMPARE(imported.size(), 0);
}

void TestImportAssistant::savedLayoutIsFoundAgain()
{
    m_assistant->add({m_table});
    auto *line = find<QLineEdit>("place.screenPx");
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, u"1280 x 1024"_s);
    QTest::keyClick(line, Qt::Key_Return);
    auto *name = find<QComboBox>("layouts")->lineEdit();
    name->selectAll();
    QTest::keyClicks(name, u"our lab"_s);
    click("save");
    QVERIFY2(text("note").startsWith(u"Saved as "_s), qPrintable(text("note")));
    QVERIFY(QFile::exists(m_files->path(u"layouts/our lab.layout.json"_s)));
    m_assistant->add({m_files->write(u"second.csv"_s, tabletexts::table({.samples = 700}))});
    find<QListWidget>("files")->setCurrentRow(1);
    QCOMPARE(find<QComboBox>("layouts")->currentText(), u"our lab"_s);

    open();
    m_assistant->add({m_files->write(u"next.csv"_s, tabletexts::table({.samples = 900}))});
    QCOMPARE(find<QComboBox>("layouts")->currentText(), u"our lab"_s);
    QCOMPARE(find<QLineEdit>("place.screenPx")->text(), u"1280 x 1024"_s);
}

void TestImportAssistant::layoutThatCannotBeSavedIsTold()
{
    m_files->write(u"layouts"_s, "a file in the place of the folder");
    m_assistant->add({m_table});
    auto *name = find<QComboBox>("layouts")->lineEdit();
    name->selectAll();
    QTest::keyClicks(name, u"our lab"_s);
    click("save");
    QCOMPARE(text("note"), m_files->path(u"layouts/our lab.layout.json"_s) +
                               u" could not be written: the folder cannot be made: Not a directory"_s);
}

void TestImportAssistant::layoutThatCannotBeReadIsTold()
{
    QDir().mkpath(m_files->path(u"layouts"_s));
    m_files->write(u"layouts/broken.layout.json"_s, "{");
    open();
    QVERIFY2(text("note").contains(u"broken.layout.json"_s), qPrintable(text("note")));
}

void TestImportAssistant::layoutIsChosenFromTheList()
{
    TableLayout other;
    other.time = TableColumn::named(u"time_ms"_s);
    other.left.x = TableColumn::named(u"right_x_px"_s);
    other.left.y = TableColumn::named(u"right_y_px"_s);
    QDir().mkpath(m_files->path(u"layouts"_s));
    QVERIFY(!writeLayoutFile(m_files->path(u"layouts/other.layout.json"_s), other));
    open();
    m_assistant->add({m_table});
    auto *box = find<QComboBox>("layouts");
    box->setFocus();
    const int index = box->findText(u"other"_s);
    QVERIFY(index >= 0);
    box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(box->view()->window()));
    const QModelIndex entry = box->model()->index(index, 0);
    box->view()->scrollTo(entry);
    QTest::mouseClick(box->view()->viewport(), Qt::LeftButton, {}, box->view()->visualRect(entry).center());
    QTRY_COMPARE(find<QComboBox>("left.x")->currentText(), u"right_x_px"_s);
    QVERIFY(text("recordings").contains(u"left eye"_s) && !text("recordings").contains(u"right eye"_s));
}

void TestImportAssistant::badNamesAreRefused()
{
    m_assistant->add({m_table});
    for (const QString &name : {u""_s, u"../up"_s, u"a/b"_s}) {
        auto *line = find<QComboBox>("layouts")->lineEdit();
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Delete);
        QTest::keyClicks(line, name);
        click("save");
        QVERIFY2(text("note").startsWith(u"Give the layout a name"_s), qPrintable(text("note")));
    }
    QVERIFY(!QFile::exists(m_files->path(u"up.layout.json"_s)));
}

void TestImportAssistant::filesAreAddedAndDropped()
{
    QCOMPARE(text("recordings"), u"Add files, or drop them here."_s);
    QVERIFY(!find<QPushButton>("import")->isEnabled());
    m_assistant->setChooser([this] { return QStringList{m_table}; });
    click("add");
    QCOMPARE(find<QListWidget>("files")->count(), 1);
    const QString other = m_files->write(u"p02.csv"_s, tabletexts::table({}));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(other)});
    QDragEnterEvent enter(QPoint(40, 30), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_assistant.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(40, 30), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_assistant.get(), &drop);
    QCOMPARE(find<QListWidget>("files")->count(), 2);
    QCOMPARE(find<QListWidget>("files")->currentRow(), 1);
}

void TestImportAssistant::nothingToImport()
{
    m_assistant->add({m_files->write(u"words.csv"_s, "word,letters\nthe,3\nfox,3\n")});
    QVERIFY(!find<QPushButton>("import")->isEnabled());
    QVERIFY(text("recordings").contains(u"words.csv"_s));
}

/// Points where the samples are: the left eye red, the right eye blue.
void TestImportAssistant::previewIsDrawn()
{
    m_assistant->add({m_table});
    const QImage image = m_assistant->findChild<SamplesView *>()->grab().toImage();
    int red = 0;
    int blue = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            red += color.red() > color.blue() + 60 ? 1 : 0;
            blue += color.blue() > color.red() + 60 ? 1 : 0;
        }
    }
    QVERIFY2(red > 20 && blue > 20, qPrintable(u"%1 %2"_s.arg(red).arg(blue)));
}

/// Below the points, as long as a table is shown for which it holds.
void TestImportAssistant::slowReadingIsTold()
{
    const auto *slowness = find<QLabel>("slowness");
    m_assistant->add({m_table});
    QVERIFY(!slowness->isVisible());
    m_assistant->setLongestLook(0);
    m_assistant->add({m_files->write(u"p02.csv"_s, tabletexts::table({.samples = 300}))});
    QVERIFY(slowness->isVisible());
    QVERIFY2(slowness->text().startsWith(u"Reading is slow"_s), qPrintable(slowness->text()));
    QTRY_VERIFY(slowness->y() > m_assistant->findChild<SamplesView *>()->geometry().bottom());
    m_assistant->setLongestLook(60'000);
    find<QListWidget>("files")->setCurrentRow(0);
    QVERIFY(!slowness->isVisible());
}

QTEST_MAIN(TestImportAssistant)
#include "TestImportAssistant.moc"
