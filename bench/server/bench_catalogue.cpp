// A catalogue of 5,000 files: reading it (to take under 1 s), comparing it with 5,000 local files
// with the progress shown (under 5 s), and a key press in the search that leaves 500 rows (under
// 200 ms).

#include "Catalogue.h"
#include "DlgCheckNewFiles.h"
#include "KabdataSettings.h"
#include "WorkFolders.h"

#include <QCoreApplication>
#include <QFile>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

namespace {
constexpr int kFiles = 5000;

/// One in ten is found by "Halte".
QByteArray FileXml(int number)
{
    const QByteArray name = "RE " + QByteArray::number(number) + ".tfp";
    return "<File Author=\"Jo\" Version=\"5\"><Name>" + name
        + "</Name><LastUpdate>01.03.2024</LastUpdate><Filename>./files/" + name
        + "</Filename><Basename>" + name + "</Basename><UID>{0}</UID><Description>"
        + (number % 10 == 0 ? "mit allen Halten" : "eilig")
        + "</Description><Scenario>Rheintal</Scenario></File>";
}

QByteArray CatalogueXml()
{
    QByteArray xml = "<Files><Category Name=\"Fahrplan\"/>";
    for (int number = 0; number < kFiles; ++number)
        xml += FileXml(number);
    return xml + "</Files>";
}

/// A work folder in which every file of the catalogue lies, in three different versions and with
/// the twenty rows of a short plan.
const QTemporaryDir &WorkFolder()
{
    static const QTemporaryDir folder;
    static const bool filled = [] {
        CreateWorkFolders(folder.path(), nullptr, [](const QString &, int) {});
        for (int number = 0; number < kFiles; ++number) {
            QFile file(WorkFolders::TrainTimeTables(folder.path())
                       + QStringLiteral("RE %1.tfp").arg(number));
            if (!file.open(QIODevice::WriteOnly))
                return false;
            file.write("Name=Rheintal\nVersion=" + QByteArray::number(4 + number % 3) + "\n");
            for (int row = 0; row < 20; ++row)
                file.write("0;50.943;6.9586;60;0;K\xc3\xb6ln Hbf;10:00:00;10:01:00;3;;;x;\n");
        }
        return true;
    }();
    Q_UNUSED(filled)
    return folder;
}

/// A reply that has come.
class ArrivedReply : public QNetworkReply
{
public:
    explicit ArrivedReply(const QByteArray &content) : body(content)
    {
        open(QIODevice::ReadOnly);
        setFinished(true);
    }
    void abort() override { }
    qint64 bytesAvailable() const override { return body.size() - at; }

protected:
    qint64 readData(char *data, qint64 most) override
    {
        const auto count = static_cast<int>(qMin<qint64>(most, body.size() - at));
        std::copy_n(body.constData() + at, count, data);
        at += count;
        return count;
    }

private:
    QByteArray body;
    int at = 0;
};

void ReadAlone(benchmark::State &state)
{
    const QByteArray xml = CatalogueXml();
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadCatalogue(xml).entries.size());
}

/// The dialog, shown, with the catalogue read and compared.
std::unique_ptr<DlgCheckNewFiles> FilledDialog(KabdataSettings &settings)
{
    settings.SetWorkFolder(WorkFolder().path());
    auto dialog = std::make_unique<DlgCheckNewFiles>(&settings);
    dialog->show();
    dialog->OnFileXMLPostReplyFinished(new ArrivedReply(CatalogueXml()));
    return dialog;
}

void CompareWithProgress(benchmark::State &state)
{
    KabdataSettings settings(WorkFolder().filePath(QStringLiteral("kabdata.ini")));
    const auto dialog = FilledDialog(settings);
    for (auto _ : state)
        dialog->OnCheckFiles();
    if (dialog->Entries().value(0).state != FileUpdate)
        state.SkipWithError("nothing was compared");
}

void ShowAllRows(benchmark::State &state)
{
    KabdataSettings settings(WorkFolder().filePath(QStringLiteral("kabdata.ini")));
    const auto dialog = FilledDialog(settings);
    for (auto _ : state) {
        dialog->OnClearSearch();
        QCoreApplication::processEvents();
    }
}

void KeyPressLeaves500Rows(benchmark::State &state)
{
    KabdataSettings settings(WorkFolder().filePath(QStringLiteral("kabdata.ini")));
    const auto dialog = FilledDialog(settings);
    auto *search = dialog->findChild<QLineEdit *>(QStringLiteral("lineEdit_search"));
    for (auto _ : state) {
        state.PauseTiming();
        dialog->OnClearSearch();
        QCoreApplication::processEvents();
        state.ResumeTiming();
        search->setText(QStringLiteral("Hal"));
        QCoreApplication::processEvents();
    }
    if (dialog->findChild<QTableWidget *>()->rowCount() != kFiles / 10)
        state.SkipWithError("not 500 rows");
}
} // namespace

BENCHMARK(ReadAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareWithProgress)->Unit(benchmark::kMillisecond);
BENCHMARK(ShowAllRows)->Unit(benchmark::kMillisecond);
BENCHMARK(KeyPressLeaves500Rows)->Unit(benchmark::kMillisecond);
