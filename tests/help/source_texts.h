// The project's own files as texts, for the checks of its manual and its documents.
#pragma once

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <gtest/gtest.h>

namespace mr4500x {

inline QString ReadText(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

// The first group of each match.
inline QStringList Captures(const QString& text, const char* pattern) {
  QStringList found;
  for (auto all = QRegularExpression(QLatin1String(pattern)).globalMatch(text); all.hasNext();)
    found.append(all.next().captured(1));
  return found;
}

} // namespace mr4500x
