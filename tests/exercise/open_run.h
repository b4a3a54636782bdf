#pragma once

#include "equation_files/equation_file.h"
#include "exercise/exercise_run.h"
#include "support/file_bytes.h"

#include <gtest/gtest.h>

namespace stoikal {

/// Writes an equation file and begins a run over it.
inline void OpenRun(ExerciseRun& run, const QString& path, const QByteArray& text)
{
    WriteBytes(path, text);
    const auto opened = EquationFile::Open(path);
    ASSERT_TRUE(opened);
    run.Open(*opened);
}

} // namespace stoikal
