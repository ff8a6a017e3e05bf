// SPDX-License-Identifier: MIT
#include "ui/surfaces/HistoryExport.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include "core/MetricsCoordinator.h"
#include "ui/surfaces/AlertPanel.h"

namespace vtx::historyExport {
namespace {

constexpr auto suggestedName = "Vantrix-History.csv";
// The platform's own alert would be in the platform's language.
constexpr auto failureTitle = "The file couldn't be saved";
constexpr auto notAFile = "This is not a file";

/// Not everybody has a folder for documents.
QString startFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

void save(MetricsCoordinator& coordinator, const QString& file, QWidget& parent) {
    const auto error = write(file, coordinator.exportHistoryCSV());
    if (error) (new AlertPanel(failureTitle, *error, &parent))->show();
}

}  // namespace

QFileDialog* ask(MetricsCoordinator& coordinator, QWidget& parent) {
    auto* dialog = new QFileDialog(&parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setMimeTypeFilters({QStringLiteral("text/csv")});
    dialog->setDefaultSuffix(QStringLiteral("csv"));
    dialog->setDirectory(startFolder());
    dialog->selectFile(suggestedName);
    QObject::connect(
        dialog, &QFileDialog::fileSelected, &parent,
        [&coordinator, &parent](const QString& file) { save(coordinator, file, parent); });
    // Not every window manager gives the keyboard back to the window from which it came.
    QObject::connect(dialog, &QDialog::finished, &parent,
                     [&parent] { parent.window()->activateWindow(); });
    dialog->open();
    return dialog;
}

std::optional<QString> write(const QString& file, std::string_view text) {
    // Taking the name of a device or a pipe would put a file in its place.
    const QFileInfo there(file);
    if (there.exists() && !there.isFile())
        return QStringLiteral("%1: %2").arg(file, QString::fromUtf8(notAFile));
    QSaveFile target(file);
    const auto size = static_cast<qint64>(text.size());
    const bool written = target.open(QIODevice::WriteOnly) &&
                         target.write(text.data(), size) == size && target.commit();
    if (written) return std::nullopt;
    return QStringLiteral("%1: %2").arg(file, target.errorString());
}

}  // namespace vtx::historyExport
