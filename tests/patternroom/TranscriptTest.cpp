// The program as a user meets it: a transcript is a talk with it, and each talk is held again and compared
// whole.
//
//   $ patternroom show b.vor.json   a command; the program and its folder are new for every transcript
//   ...                             standard output, as it stands
//   ! patternroom: ...              standard error
//   = 4                             the exit code, where it is not 0
//
// Other lines at the top, up to the first command, say what is shown. VORFRAMES_UPDATE=1 writes the
// transcripts anew.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cctype>

namespace
{

const QString kTranscripts = QStringLiteral(PATTERNROOM_TRANSCRIPTS);
const QString kProgram = QStringLiteral(PATTERNROOM_PROGRAM);
const QString kTutorial = QStringLiteral(PATTERNROOM_TUTORIAL);
const QString kDocuments = QStringLiteral(PATTERNROOM_DOCUMENTS);

QString read(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QString withPrefix(const QString &prefix, const QString &text)
{
    QString lines;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        if (!line.isEmpty())
            lines += prefix + line + QLatin1Char('\n');
    }
    return lines;
}

// The shell parts the words, and so a transcript can be typed as it stands.
QString answerTo(const QString &command, const QString &folder)
{
    QProcess shell;
    shell.setWorkingDirectory(folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    shell.setProcessEnvironment(environment);
    shell.setStandardInputFile(QProcess::nullDevice());
    shell.start(
        QStringLiteral("/bin/bash"),
        {QStringLiteral("-c"), QStringLiteral("patternroom() { '%1' \"$@\"; }; %2").arg(kProgram, command)});
    if (!shell.waitForFinished(120000))
        return QStringLiteral("never ended\n");
    QString answer = QString::fromUtf8(shell.readAllStandardOutput());
    answer += withPrefix(QStringLiteral("! "), QString::fromUtf8(shell.readAllStandardError()));
    if (shell.exitStatus() != QProcess::NormalExit)
        answer += QStringLiteral("= crashed\n");
    else if (shell.exitCode() != 0)
        answer += QStringLiteral("= %1\n").arg(shell.exitCode());
    return answer;
}

QString heldAgain(const QString &transcript, const QString &folder)
{
    QString text;
    bool isTitle = true;
    for (const QString &line : transcript.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("$ "))) {
            isTitle = false;
            text += line + QLatin1Char('\n') + answerTo(line.mid(2), folder);
        } else if (isTitle) {
            text += line + QLatin1Char('\n');
        }
    }
    return text;
}

void prepare(const QTemporaryDir &folder)
{
    const QStringList kinds{QStringLiteral("*.room"), QStringLiteral("*.csv"), QStringLiteral("*.json")};
    for (const QString &from : {kDocuments, kTranscripts, kTutorial}) {
        for (const QString &name : QDir(from).entryList(kinds, QDir::Files))
            ASSERT_TRUE(QFile::copy(from + QLatin1Char('/') + name, folder.filePath(name)));
    }
}

class Transcript : public testing::TestWithParam<std::string>
{
};

TEST_P(Transcript, isHeldAgainWordForWord)
{
    const QString path = kTranscripts + QLatin1Char('/') + QString::fromStdString(GetParam());
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    prepare(folder);

    const QString expected = read(path);
    ASSERT_TRUE(expected.contains(QLatin1String("$ "))) << "no command in the transcript";
    const QString actual = heldAgain(expected, folder.path());
    if (qEnvironmentVariableIsSet("VORFRAMES_UPDATE")) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(actual.toUtf8());
        return;
    }
    EXPECT_EQ(actual.toStdString(), expected.toStdString());
}

std::vector<std::string> transcripts()
{
    std::vector<std::string> names;
    for (const QString &name :
         QDir(kTranscripts).entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name))
        names.push_back(name.toStdString());
    return names;
}

std::string nameOf(const testing::TestParamInfo<std::string> &parameter)
{
    std::string name;
    for (const char letter : parameter.param.substr(0, parameter.param.size() - 4))
        name += std::isalnum(static_cast<unsigned char>(letter)) ? letter : '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, Transcript, testing::ValuesIn(transcripts()), nameOf);

TEST(Concepts, picturesAreWhatTheProgramDraws)
{
    const QString pages = QStringLiteral(PATTERNROOM_CONCEPTS);
    const QString bundled = QStringLiteral(PATTERNROOM_BUNDLED);
    const QStringList pictures = QDir(pages).entryList({QStringLiteral("*.svg")}, QDir::Files);
    ASSERT_EQ(pictures.size(), 5);
    QTemporaryDir folder;
    for (const QString &name : QDir(bundled).entryList(QDir::Files))
        ASSERT_TRUE(QFile::copy(bundled + QLatin1Char('/') + name, folder.filePath(name)));

    const QString answer =
        answerTo(QStringLiteral("patternroom run '%1/pictures.room'").arg(pages), folder.path());

    ASSERT_FALSE(answer.contains(QLatin1String("\n! "))) << answer.toStdString();
    for (const QString &name : pictures)
        EXPECT_TRUE(read(folder.filePath(name)) == read(pages + QLatin1Char('/') + name))
            << name.toStdString();
}

TEST(Help, showsAnExampleOfEachCommandThatWorks)
{
    QTemporaryDir folder;
    prepare(folder);
    const QString made =
        answerTo(QStringLiteral("patternroom run tie.room && patternroom new jacket.vor.json "
                                "--sizes '34;36;38;40;42;44;46'"),
                 folder.path());
    ASSERT_FALSE(made.contains(QLatin1String("\n= "))) << made.toStdString();
    int count = 0;
    for (const QString &line :
         answerTo(QStringLiteral("patternroom --help"), folder.path()).split(QLatin1Char('\n'))) {
        if (!line.startsWith(QLatin1String("  ")))
            continue;
        const QString help = answerTo(
            QStringLiteral("patternroom %1 --help").arg(line.trimmed().section(QLatin1Char(' '), 0, 0)),
            folder.path());
        const QString example =
            help.section(QStringLiteral("Example:\n"), 1).section(QLatin1Char('\n'), 0, 0);
        ASSERT_TRUE(example.contains(QLatin1String("patternroom"))) << help.toStdString();
        const QString answer = QLatin1Char('\n') + answerTo(example.trimmed(), folder.path());
        EXPECT_FALSE(answer.contains(QLatin1String("\n= "))) << example.toStdString() << answer.toStdString();
        ++count;
    }
    EXPECT_GE(count, 15);
}

} // namespace
