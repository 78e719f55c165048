// A collection of 5,000 own forms of about two pages each, in the real window: choosing another sub-category
// with the silent save of the form on display, choosing a title, and filling the lists anew.
#include "app/main_window.h"
#include "appearance/look.h"
#include "library/library_format.h"
#include "library/my_forms_page.h"
#include "platform/controls/list_box.h"
#include "platform/desktop_services.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rtf_writer.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextDocument>
#include <benchmark/benchmark.h>

using namespace quillbrook;

namespace {

constexpr int kForms = 5000;

QString Content(int number) {
    static const QString form = [] {
        QTextDocument document;
        document.setPlainText(
            QStringLiteral("No. NUMBER. This deed of sale is made between the seller, of legal "
                           "age, and the buyer, likewise of legal age.\n")
                .repeated(60));
        return QString::fromLatin1(platform::WriteRtf(document));
    }();
    return QString(form).replace(QStringLiteral("NUMBER"), QString::number(number));
}

bool AddForm(platform::Recordset& rows, const QString& title, const QString& category,
             const QString& subCategory, const QString& content) {
    return rows.AddNew() && rows.SetField(QStringLiteral("Title"), title) &&
           rows.SetField(QStringLiteral("Category"), category) &&
           rows.SetField(QStringLiteral("SubCategory"), subCategory) &&
           rows.SetField(QStringLiteral("Content"), content) && rows.Update();
}

// A program folder whose library holds the forms, spread evenly over `subCategories`.
class Folder {
public:
    explicit Folder(int subCategories) {
        QDir(m_folder.path()).mkdir(QStringLiteral("Data"));
        const auto database = platform::Database::CreateDatabase(
            m_folder.filePath(QStringLiteral("Data/Forms.dat")),
            QStringLiteral(";pwd=") + BuildLibraryPassword(), LibraryFileFormat(), LibraryTables());
        const auto rows = database->OpenRecordset(QStringLiteral("Forms"));
        database->BeginTrans();
        AddForm(*rows, QStringLiteral("Jurat"), QStringLiteral("Acknowledgment / Jurat"),
                QStringLiteral("Jurats"), Content(0)); // the window starts with this category
        for (int i = 0; i < kForms; ++i)
            AddForm(*rows, QStringLiteral("Own Form No. %1").arg(i), QStringLiteral("My Forms"),
                    QStringLiteral("Sub-Category %1").arg(i % subCategories), Content(i));
        database->IndexText(QStringLiteral("Forms"), QStringLiteral("Content"));
        database->CommitTrans();
    }
    QString Path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

class Window {
public:
    explicit Window(int subCategories)
        : m_folder(subCategories)
        , m_main(m_desktop.Services(), m_folder.Path()) {
        m_main.Load();
        m_main.show();
        m_main.SetTab(Tab::MyForms);
        QCoreApplication::processEvents();
    }
    ~Window() { m_main.Store().CloseLibrary(); }
    MyFormsPage& Page() { return *m_main.myFormsPage; }
    platform::RichTextBox& Pane() { return *m_main.txtMyContent(); }

private:
    Folder m_folder;
    platform::DesktopServices m_desktop{QStringLiteral("quillbrook-bench"), QStringLiteral("Benchmark"),
                                        m_folder.Path()};
    frmMain m_main;
};

// Times `step`, its painting included, and keeps the longest.
template <typename Step>
void Measure(benchmark::State& state, Step step) {
    double longest = 0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        step();
        QCoreApplication::processEvents();
        longest = std::max(longest, double(clock.nsecsElapsed()) / 1e6);
    }
    state.counters["longest_ms"] = longest;
}

void AnotherSubCategory(benchmark::State& state, bool edited) {
    Window window(int(state.range(0)));
    platform::ListBox* list = window.Page().lstMySubCategory;
    int index = 0;
    Measure(state, [&] {
        if (edited)
            window.Pane().setSelText(QStringLiteral("changed "));
        index = (index + 1) % list->ListCount();
        list->setListIndex(index);
        if (window.Page().lstMyTitle->ListCount() != kForms / int(state.range(0)))
            state.SkipWithError("the titles are not there");
    });
}
BENCHMARK_CAPTURE(AnotherSubCategory, read, false)->Arg(5)->Arg(50)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(AnotherSubCategory, edited, true)->Arg(5)->Arg(50)->Unit(benchmark::kMillisecond);

void AnotherTitle(benchmark::State& state) {
    Window window(int(state.range(0)));
    platform::ListBox* list = window.Page().lstMyTitle;
    int index = 0;
    Measure(state, [&] {
        index = (index + 1) % list->ListCount();
        list->setListIndex(index);
    });
}
BENCHMARK(AnotherTitle)->Arg(5)->Unit(benchmark::kMillisecond);

// As after adding, changing or deleting a form.
void ListsAnew(benchmark::State& state) {
    Window window(int(state.range(0)));
    Measure(state, [&] { window.Page().DisplayMySubCategories(); });
}
BENCHMARK(ListsAnew)->Arg(5)->Arg(50)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ApplyLook(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
