#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <gtest/gtest.h>
#include <string>

namespace stoikal {

/// Another program that says "ready" once it has started and does its work when
/// it is told to: several of them then work at the same moment. A wait gives up
/// after a minute.
class WaitingProgram
{
public:
    WaitingProgram(const QString& program, const QStringList& arguments)
    {
        m_process.start(program, arguments);
    }

    /// False when it ended or stayed silent before it was ready.
    bool WaitUntilReady()
    {
        while (!m_output.contains("ready")) {
            if (!m_process.waitForReadyRead(kPatienceMs))
                return false;
            m_output += m_process.readAllStandardOutput();
        }
        return true;
    }

    void Go()
    {
        m_process.write("go\n");
        m_process.waitForBytesWritten(kPatienceMs);
    }

    void KillAfter(unsigned long delayUs)
    {
        QThread::usleep(delayUs);
        m_process.kill();
    }

    /// False when it works on and on.
    bool WaitForEnd()
    {
        if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(kPatienceMs))
            return false;
        m_output += m_process.readAllStandardOutput();
        return true;
    }

    /// Waits for its end too: whether it came of itself, with the code 0.
    bool HasSucceeded()
    {
        return WaitForEnd() && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }

    /// Whether it has written this so far.
    bool HasSaid(const QByteArray& word) const { return m_output.contains(word); }

    std::string Errors() { return m_process.readAllStandardError().toStdString(); }

private:
    static constexpr int kPatienceMs = 60000;
    QProcess m_process;
    QByteArray m_output;
};

/// Tests with other programs: processes need an application object.
class ProgramsTest : public testing::Test
{
private:
    int m_argc = 1;
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
    QCoreApplication m_application = QCoreApplication(m_argc, m_argv);
};

} // namespace stoikal
