#pragma once

#include "forms/form.h"

class QLabel;
class QPlainTextEdit;

namespace stoikal {

class Screen;
class Settings;

/// Shows what the file will hold, beside the editor. Its place and size are kept.
class frmPreview final : public Form
{
    Q_OBJECT

public:
    frmPreview(const Screen& screen, Settings& settings, QWidget* editor);

    /// The place and size kept last; without them beside the editor.
    void RestorePlaceAndSize();
    void KeepPlaceAndSize() const;

    /// Text behind what is shown.
    void Append(const QString& text);
    /// All of the text, at the line of that equation.
    void ShowListing(const QString& text, int number);
    /// Brings that equation of the listing into sight.
    void PointAt(int number);

private:
    QRect BesideEditor() const;

    const Screen& m_screen;
    Settings& m_settings;
    QWidget* m_editor;
    QLabel* lblListing;
    QPlainTextEdit* txtResult;
};

} // namespace stoikal
