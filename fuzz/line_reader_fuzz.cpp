#include "equation_files/equation_file.h"
#include "equation_files/equation_line.h"
#include "fuzz.h"

using namespace stoikal;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const FirstPass pass = CountEquations(bytes);
    fuzz::Require(pass.equationCount >= 0 && pass.equationCount <= bytes.size(),
                  "an equation has a byte at least");
    fuzz::Tolerating([&] {
        try {
            const ParsedLine line = ParseEquationLine(fuzz::LineOf(data, size));
            fuzz::Require(line.points == 0 || line.points == 5 || line.points == 10,
                          "a line gives 0, 5 or 10 points");
        } catch (const DataSyntaxError& error) {
            fuzz::Require(!error.Text().isEmpty(), "the fault has a text");
        } catch (const MissingDataError& error) {
            fuzz::Require(!error.Text().isEmpty(), "the fault has a text");
        }
    });
    return 0;
}
