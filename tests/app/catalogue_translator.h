// A translation that sets each text of the source catalogue in marks, and leaves what the catalogue lacks as it is.
#pragma once

#include <QFile>
#include <QSet>
#include <QTranslator>
#include <QXmlStreamReader>

namespace mr4500x {

class CatalogueTranslator final : public QTranslator {
public:
  explicit CatalogueTranslator(const QString& catalogue) {
    QFile file(catalogue);
    if (!file.open(QIODevice::ReadOnly)) return;
    QXmlStreamReader xml(&file);
    QString context;
    while (!xml.atEnd()) {
      if (xml.readNext() != QXmlStreamReader::StartElement) continue;
      if (xml.name() == QLatin1String("name")) context = xml.readElementText();
      if (xml.name() == QLatin1String("source")) m_texts.insert(context + QLatin1Char('|') + xml.readElementText());
    }
  }

  [[nodiscard]] bool isEmpty() const override { return m_texts.isEmpty(); }
  [[nodiscard]] QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                                  int /*n*/) const override {
    const QString source = QString::fromUtf8(text);
    if (!m_texts.contains(QString::fromUtf8(context) + QLatin1Char('|') + source)) return {};
    return QStringLiteral("<%1>").arg(source);
  }

private:
  QSet<QString> m_texts;
};

} // namespace mr4500x
