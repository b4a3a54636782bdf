#include "fuzz_targets.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>

namespace stoikal {

namespace {

QByteArray g_file; ///< the one that is read now

/// A breach ends the process, as it does under the fuzzer.
void NameTheFile(int /*signal*/)
{
    std::cerr << "with the file " << g_file.toStdString() << std::endl;
}

/// A target and its corpus.
class Corpus : public testing::TestWithParam<FuzzTarget>
{
protected:
    const QDir folder{QStringLiteral(STOIKAL_CORPUS_DIR "/") + QLatin1String(GetParam().name)};
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);

    void SetUp() override { std::signal(SIGABRT, NameTheFile); }
    void TearDown() override { std::signal(SIGABRT, SIG_DFL); }

    void Run(const QByteArray& bytes) const
    {
        GetParam().run(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                       static_cast<size_t>(bytes.size()));
    }
};

} // namespace

TEST_P(Corpus, HasThirtyFilesAtLeast)
{
    EXPECT_GE(names.size(), 30);
}

TEST_P(Corpus, BreaksNoRule)
{
    for (const QString& name : names) {
        g_file = name.toUtf8();
        Run(BytesOfFile(folder.filePath(name)));
    }
}

TEST_P(Corpus, BreaksNoRuleCutShort)
{
    for (const QString& name : names) {
        g_file = name.toUtf8();
        const QByteArray bytes = BytesOfFile(folder.filePath(name));
        for (qsizetype part = 0; part < 8; ++part)
            Run(bytes.first(bytes.size() * part / 8));
    }
}

INSTANTIATE_TEST_SUITE_P(Fuzz, Corpus, testing::ValuesIn(kFuzzTargets),
                         [](const auto& target) { return std::string(target.param.name); });

} // namespace stoikal
