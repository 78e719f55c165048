// Runs scripts/setup.sh with stand-ins for the commands that look at and change the system.

#include <QtCore>
#include <QtTest>

namespace quillbrook {
namespace {

struct Outcome {
    int status = -1;
    QString output;
    QStringList calls;
};

class SetupTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void NothingMissingInstallsNothing();
    void AnotherNameOfThePackageCounts();
    void OnlyWhatIsMissingIsInstalled();
    void AnOrdinaryUserGoesThroughSudoThatAsksNothing();
    void TheListIsFetchedFirstWhenAPackageIsUnknown();
    void ARefusedInstallationListsWhatIsMissing();
    void WithoutSudoNothingIsTried();
    void WithoutAptGetItListsWhatIsMissing();
    void AnUnknownGroupIsRefused();

private:
    [[nodiscard]] QString Path(const char* name) const;
    void Command(const char* name, const QByteArray& body);
    [[nodiscard]] Outcome Setup(const QStringList& groups, bool onlyStandIns = false);

    std::unique_ptr<QTemporaryDir> m_folder;
};

// A Debian whose installed packages are the lines of the file "installed", and whose apt-get installs
// whatever it is told.
void SetupTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("bin")));
    Command("id", "echo 0");
    Command("dpkg-query",
            "while read -r p; do printf 'installed\\t%s, \\n' \"$p\"; done < \"$HERE/installed\"");
    Command("apt-cache",
            "if [ -e \"$HERE/old-list\" ]; then echo '  Candidate: (none)'; else echo '  Candidate: 1'; fi");
    Command("apt-get", R"(echo "apt-get $DEBIAN_FRONTEND $*" >> "$HERE/calls"
case " $* " in *" update "*) rm -f "$HERE/old-list" ;; esac
case " $* " in *" install "*) printf '%s\n' "$@" >> "$HERE/installed" ;; esac)");
    Command("sudo", "echo \"sudo $1\" >> \"$HERE/calls\"; shift; exec \"$@\"");
    QFile installed(Path("installed"));
    QVERIFY(installed.open(QIODevice::WriteOnly));
    installed.write(
        "g++\ncmake\nninja-build\nccache\npkg-config\nqt6-base-dev\nqt6-svg-dev\nqt6-qpa-plugins\n"
        "libsqlcipher-dev\nlibssl-dev\nlibhunspell-dev\nhunspell-en-us\nfp-utils-3.2.2\nlibgl-dev\nfonts-"
        "liberation2\nxvfb\n");
}

QString SetupTest::Path(const char* name) const {
    return m_folder->filePath(QString::fromLatin1(name));
}

void SetupTest::Command(const char* name, const QByteArray& body) {
    QFile file(Path("bin/") + QString::fromLatin1(name));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("#!/bin/bash\nHERE='" + m_folder->path().toUtf8() + "'\n" + body + '\n');
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

Outcome SetupTest::Setup(const QStringList& groups, bool onlyStandIns) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString bin = Path("bin");
    environment.insert(QStringLiteral("PATH"),
                       onlyStandIns ? bin : bin + QLatin1Char(':') + qEnvironmentVariable("PATH"));
    environment.insert(QStringLiteral("CI"), QStringLiteral("true"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(QStringLiteral("/bin/bash"),
                  QStringList{QStringLiteral(QUILLBROOK_SOURCE_DIR "/scripts/setup.sh")} + groups);
    Outcome outcome;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit) {
        return outcome;
    }
    outcome.status = process.exitCode();
    outcome.output = QString::fromUtf8(process.readAll());
    QFile calls(Path("calls"));
    if (calls.open(QIODevice::ReadOnly)) {
        outcome.calls = QString::fromUtf8(calls.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    return outcome;
}

void SetupTest::NothingMissingInstallsNothing() {
    const Outcome outcome = Setup({QStringLiteral("build")});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.output, QString());
    QCOMPARE(outcome.calls, QStringList());
}

void SetupTest::AnotherNameOfThePackageCounts() {
    QFile installed(Path("installed"));
    QVERIFY(installed.open(QIODevice::ReadWrite));
    QByteArray names = installed.readAll();
    names.replace("qt6-svg-dev", "libqt6svg6-dev").replace("pkg-config", "pkgconf");
    QVERIFY(installed.resize(0) && installed.seek(0) && installed.write(names) == names.size());
    installed.close();
    QCOMPARE(Setup({QStringLiteral("build")}).status, 0);
    QVERIFY(!QFile::exists(Path("calls")));
}

void SetupTest::OnlyWhatIsMissingIsInstalled() {
    const Outcome outcome = Setup({QStringLiteral("build"), QStringLiteral("display")});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.calls.size(), 1);
    QVERIFY2(outcome.calls.first().startsWith(QLatin1String("apt-get noninteractive ")),
             qPrintable(outcome.calls.first()));
    QVERIFY2(outcome.calls.first().endsWith(
                 QLatin1String(" install -y --no-install-recommends openbox x11-utils")),
             qPrintable(outcome.calls.first()));
    QVERIFY2(outcome.output.contains(QLatin1String("gives the windows of that display focus")),
             qPrintable(outcome.output));
}

void SetupTest::AnOrdinaryUserGoesThroughSudoThatAsksNothing() {
    Command("id", "echo 1000");
    const Outcome outcome = Setup({QStringLiteral("display")});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.calls.size(), 3);
    QCOMPARE(outcome.calls.at(0), QStringLiteral("sudo -n"));
    QCOMPARE(outcome.calls.at(1), QStringLiteral("sudo -n"));
    QVERIFY(outcome.calls.at(2).startsWith(QLatin1String("apt-get noninteractive ")));
}

void SetupTest::TheListIsFetchedFirstWhenAPackageIsUnknown() {
    QFile oldList(Path("old-list"));
    QVERIFY(oldList.open(QIODevice::WriteOnly));
    const Outcome outcome = Setup({QStringLiteral("display")});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.calls.size(), 2);
    QVERIFY(outcome.calls.at(0).endsWith(QLatin1String(" update")));
    QVERIFY(outcome.calls.at(1).contains(QLatin1String(" install ")));
}

void SetupTest::ARefusedInstallationListsWhatIsMissing() {
    Command("apt-get", "echo \"apt-get $*\" >> \"$HERE/calls\"; exit 100");
    const Outcome outcome = Setup({QStringLiteral("display")});
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.calls.size(), 3); // install, update, install
    const QString list = outcome.output.section(QLatin1String("are missing:"), 1);
    QVERIFY2(list.contains(QLatin1String("  openbox ")), qPrintable(outcome.output));
    QVERIFY2(list.contains(QLatin1String("  x11-utils ")), qPrintable(outcome.output));
    QVERIFY2(!list.contains(QLatin1String("xvfb")), qPrintable(outcome.output));
}

void SetupTest::WithoutSudoNothingIsTried() {
    Command("id", "echo 1000");
    Command("sudo", "exit 1");
    const Outcome outcome = Setup({QStringLiteral("display")});
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.calls, QStringList());
    QVERIFY2(outcome.output.contains(QLatin1String("  openbox ")), qPrintable(outcome.output));
}

void SetupTest::WithoutAptGetItListsWhatIsMissing() {
    QVERIFY(QDir(Path("bin")).removeRecursively());
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("bin")));
    Command("openbox", "true");
    const Outcome outcome = Setup({QStringLiteral("display")}, true);
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.output.contains(QLatin1String("no apt-get")), qPrintable(outcome.output));
    QVERIFY2(outcome.output.contains(QLatin1String("  xvfb ")), qPrintable(outcome.output));
    QVERIFY2(!outcome.output.contains(QLatin1String("  openbox ")), qPrintable(outcome.output));
}

void SetupTest::AnUnknownGroupIsRefused() {
    QCOMPARE(Setup({QStringLiteral("everything")}).status, 2);
    QVERIFY(!QFile::exists(Path("calls")));
}

} // namespace
} // namespace quillbrook

QTEST_GUILESS_MAIN(quillbrook::SetupTest)
#include "setup_test.moc"
