#pragma once

#include <QString>

#include <functional>

class QWidget;

/// Asks for one file without blocking; `chosen` gets its path, and nothing is called when the
/// user changes his mind. `suffix`: of the file's name, without the dot. The dialog is a child of
/// `parent` and deletes itself when closed.
namespace filedialog {

/// A file to write. `mayExist` leaves out the question about overwriting, for files that are
/// appended to. The proposed path may be empty.
void save(QWidget* parent, const QString& title, const QString& proposedPath, bool mayExist,
          std::function<void(const QString&)> chosen,
          const QString& suffix = QStringLiteral("csv"));

/// A file to read.
void load(QWidget* parent, const QString& title, std::function<void(const QString&)> chosen,
          const QString& suffix = QStringLiteral("csv"));

/// The text as a part of a file's name: without what some system does not permit there.
QString namePart(QString text);

} // namespace filedialog
