#pragma once
// Game text is Windows-1252 bytes; Qt wants Unicode. The conversion happens
// here and nowhere else.
#include <QFile>
#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/text.h"

namespace kestrin::ui {

// Game text (Windows-1252, CR LF) for the screen.
inline QString qs(std::string_view gameText) {
    QString s = QString::fromStdString(cp1252ToUtf8(gameText));
    s.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return s;
}

// Screen text back to the game's bytes.
inline std::string gameText(const QString& s) { return utf8ToCp1252(s.toStdString()); }

// Paths are the file system's own bytes, not game text.
inline QString qpath(const std::filesystem::path& p) { return QFile::decodeName(QByteArray::fromStdString(p.string())); }
inline QString qpath(const std::string& nativeBytes) { return QFile::decodeName(QByteArray::fromStdString(nativeBytes)); }
inline std::string nativePath(const QString& p) { return QFile::encodeName(p).toStdString(); }

// "Picture Files|*.bmp;*.dib" as a file dialog filter: "Picture Files (*.bmp *.dib)".
inline QString dialogFilter(std::string_view gameFilter) {
    QString f = qs(gameFilter);
    const int bar = f.indexOf('|');
    if (bar < 0) return f;
    QString patterns = f.mid(bar + 1);
    patterns.replace(';', ' ');
    return f.left(bar) + " (" + patterns + ")";
}

}  // namespace kestrin::ui
