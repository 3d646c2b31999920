#include "gui/platform/file_filter.h"

#include <QStringList>

namespace tv::gui {

namespace {

bool is_pattern(const QString& s) { return s.contains(u'*') || s.contains(u'?'); }

// "*.txt; *.TXT" -> "*.txt *.TXT". Both spreadsheet forms are read, so "*.xls" brings "*.xlsx".
QString pattern_list(const QString& s) {
    QStringList parts;
    for (const QString& p : s.split(u';', Qt::SkipEmptyParts)) {
        QString t = p.trimmed();
        if (!t.isEmpty()) parts << t;
    }
    const QString xls = QStringLiteral("*.xls"), xlsx = QStringLiteral("*.xlsx");
    if (parts.contains(xls, Qt::CaseInsensitive) && !parts.contains(xlsx, Qt::CaseInsensitive))
        parts.insert(parts.indexOf(xls) >= 0 ? parts.indexOf(xls) + 1 : parts.size(), xlsx);
    return parts.join(u' ');
}

// A name for a bare pattern: "*.txt" -> "Text files", "*.xls" -> "Excel files".
QString describe(const QString& patterns) {
    QString first = patterns.section(u' ', 0, 0);
    QString ext = first.section(u'.', -1).toLower();
    if (first == QLatin1String("*") || first == QLatin1String("*.*")) return QStringLiteral("All files");
    if (ext == QLatin1String("txt")) return QStringLiteral("Text files");
    if (ext == QLatin1String("xls") || ext == QLatin1String("xlsx")) return QStringLiteral("Excel files");
    if (ext == QLatin1String("csv")) return QStringLiteral("CSV files");
    if (ext == QLatin1String("pdf")) return QStringLiteral("PDF files");
    return ext.toUpper() + QStringLiteral(" files");
}

QString entry(QString description, const QString& patterns) {
    description = description.trimmed();
    if (description.isEmpty()) description = describe(patterns);
    // "Text (*.txt)" already names its patterns: Qt reads the last parenthesis, keep one.
    if (description.endsWith(u')') && description.contains(u'(')) {
        int open = description.lastIndexOf(u'(');
        QString inside = description.mid(open + 1, description.size() - open - 2).trimmed();
        if (pattern_list(inside.replace(u' ', u';')) == patterns) return description;
        description = description.left(open).trimmed();
    }
    return description + QStringLiteral(" (") + patterns + u')';
}

}  // namespace

QString qt_name_filter(const std::string& old_filter) {
    QString text = QString::fromStdString(old_filter).trimmed();
    if (text.isEmpty()) return {};
    QStringList parts = text.split(u'|');
    QStringList entries;
    if (parts.size() == 1) {
        const QString only = parts.front().trimmed();
        if (is_pattern(only)) return entry({}, pattern_list(only));
        return entry(only, QStringLiteral("*"));
    }
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString description = parts[i].trimmed();
        const QString patterns = i + 1 < parts.size() ? pattern_list(parts[i + 1]) : QString();
        if (patterns.isEmpty()) {
            if (is_pattern(description)) entries << entry({}, pattern_list(description));
            continue;
        }
        entries << entry(description, patterns);
    }
    return entries.join(QStringLiteral(";;"));
}

QString preset_file_name(const std::string& preset) {
    QString name = QString::fromStdString(preset).trimmed();
    return is_pattern(name) ? QString() : name;
}

QString dialog_filter(const std::string& old_filter, const std::string& preset) {
    QString filter = qt_name_filter(old_filter);
    if (filter.isEmpty()) {
        QString p = QString::fromStdString(preset).trimmed();
        if (is_pattern(p)) filter = qt_name_filter(preset);
    }
    const QString all = QStringLiteral("All files (*)");
    if (filter.isEmpty()) return all;
    if (filter.split(QStringLiteral(";;")).contains(all)) return filter;
    return filter + QStringLiteral(";;") + all;
}

}  // namespace tv::gui
