// The built program itself, started in a folder of its own with nobody before it.
#include "support/Provmapp.h"
#include "support/ToPrint.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct Körning {
    int status = -1;
    QStringList fönster; ///< the windows that came up, in their order; message boxes with title and text
    QString fel;         ///< standard error
};

class Programstart : public testing::Test {
protected:
    Programstart() {
        KopieraMapp(QStringLiteral(SORVIK_DATA), Data());
        EXPECT_TRUE(QFile::copy(QStringLiteral(SORVIK_PROGRAM), mapp_.path() + QStringLiteral("/Sorvik")));
    }
    QString Data() const { return mapp_.path() + QStringLiteral("/Data"); }

    /// Runs the program to its end.
    Körning Kör(bool stäng) const {
        QProcess program;
        QProcessEnvironment miljö = QProcessEnvironment::systemEnvironment();
        miljö.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        miljö.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(SORVIK_PLUGINS));
        miljö.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("okpress"));
        if (stäng) miljö.insert(QStringLiteral("OKPRESS_CLOSE"), QStringLiteral("1"));
        program.setProcessEnvironment(miljö);
        program.setWorkingDirectory(QStringLiteral("/"));
        program.start(mapp_.path() + QStringLiteral("/Sorvik"), {});
        if (!program.waitForFinished(60000)) {
            ADD_FAILURE() << "the program did not end; it showed " << program.readAll().toStdString();
            program.kill();
            program.waitForFinished();
            return {};
        }
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        return {program.exitCode(),
                QString::fromUtf8(program.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts),
                QString::fromUtf8(program.readAllStandardError())};
    }

private:
    QTemporaryDir mapp_;
};

} // namespace

TEST_F(Programstart, WithoutTheSettingsItEndsWithStatusOneAfterTheSplash) {
    ASSERT_TRUE(QFile::remove(Data() + "/SVD.Dat"));
    const Körning körning = Kör(false);
    EXPECT_EQ(körning.status, 1);
    ASSERT_EQ(körning.fönster.size(), 2) << körning.fönster.join(u'\n').toStdString();
    EXPECT_EQ(körning.fönster[0], "frSplashTest");
    EXPECT_TRUE(körning.fönster[1].startsWith("RuntimeError: Sorvik|"));
    EXPECT_TRUE(körning.fel.contains("SVD.Dat")) << körning.fel.toStdString();
    EXPECT_FALSE(QFile::exists(Data() + "/SVD.Dat"));
}

TEST_F(Programstart, WithoutADataFolderItEndsWithStatusOneToo) {
    ASSERT_TRUE(QDir(Data()).removeRecursively());
    EXPECT_EQ(Kör(false).status, 1);
}

TEST_F(Programstart, StartedAndEndedItShowsSplashWindowAndQuestionAndLeavesWithStatusNought) {
    const Körning körning = Kör(true);
    EXPECT_EQ(körning.status, 0) << körning.fel.toStdString();
    // A new station has not filled in what is required.
    EXPECT_EQ(körning.fönster,
              (QStringList{"frSplashTest", "frTest", "MsgBox: Sorvik|Vill du verkligen avsluta Sorvik ?",
                           "MsgBox: Saknar uppgifter|Saknar viktiga uppgifter! Var god kontrollera dessa."}));
}
