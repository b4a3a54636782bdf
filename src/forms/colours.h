#pragma once

#include <QColor>
#include <cstdint>

namespace stoikal {

/// Colours of the element table and of the settings are 24-bit numbers with
/// red in the low byte and blue in the high one.
inline QColor FromBgr(std::uint32_t colour)
{
    return QColor(static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
                  static_cast<int>((colour >> 16U) & 0xFFU));
}

inline std::uint32_t ToBgr(const QColor& colour)
{
    return static_cast<std::uint32_t>(colour.red()) | (static_cast<std::uint32_t>(colour.green()) << 8U)
        | (static_cast<std::uint32_t>(colour.blue()) << 16U);
}

/// The colours of the house. The paper of exercises and drawings stays light on
/// a dark desktop.
namespace colours {
inline const QColor kGround(0xF5, 0xF6, 0xF8);
inline const QColor kPaper(0xFF, 0xFF, 0xFF);
inline const QColor kInk(0x1C, 0x24, 0x30);
inline const QColor kSecondInk(0x5A, 0x64, 0x75);
inline const QColor kLine(0xD5, 0xDA, 0xE2);
inline const QColor kAccent(0x24, 0x60, 0xC8);
inline const QColor kRight(0x1E, 0x8E, 0x3E);
inline const QColor kWrong(0xC5, 0x22, 0x1F);
inline const QColor kInfoTip(0xFF, 0xF9, 0xE5); ///< the band of an exercise, bubbles
inline const QColor kFlashRight(0, 255, 0);
inline const QColor kFlashWrong(255, 0, 0);
} // namespace colours

} // namespace stoikal
