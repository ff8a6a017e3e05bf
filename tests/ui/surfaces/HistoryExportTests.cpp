// SPDX-License-Identifier: MIT
#include "ui/surfaces/HistoryExport.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QTemporaryDir>
#include <csignal>

#include "ui/surfaces/AlertPanel.h"
#include "ui/surfaces/SurfaceBench.h"

namespace vtx {
namespace {

QByteArray contentsOf(const QString& file) {
    QFile read(file);
    return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray();
}

TEST(HistoryExport, replaces_the_file_whole) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.csv");
    EXPECT_EQ(historyExport::write(file, "a long first text\n"), std::nullopt);
    EXPECT_EQ(historyExport::write(file, "second\n"), std::nullopt);
    EXPECT_EQ(contentsOf(file), "second\n");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST(HistoryExport, a_place_that_takes_no_file_is_told_in_words) {
    const QTemporaryDir folder;
    const QString missing = folder.filePath("nowhere/a.csv");
    const auto error = historyExport::write(missing, "text");
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->startsWith(missing));
    EXPECT_TRUE(historyExport::write(folder.path(), "text"));
}

/// No file of this process may become longer, for as long as it lives: a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
};

TEST(HistoryExport, a_full_disk_is_told_and_leaves_what_was_there) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.csv");
    ASSERT_EQ(historyExport::write(file, "first\n"), std::nullopt);
    {
        const FullDisk full(4096);
        EXPECT_TRUE(historyExport::write(file, std::string(1 << 20, 'x')));
    }
    EXPECT_EQ(contentsOf(file), "first\n");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST(HistoryExport, what_is_no_file_is_not_replaced) {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath("pipe");
    ASSERT_EQ(::mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    EXPECT_TRUE(historyExport::write(pipe, "text"));
    EXPECT_EQ(QFileInfo(pipe).isFile(), false);
    EXPECT_TRUE(QFileInfo::exists(pipe));
}

TEST(HistoryExport, the_dialog_suggests_a_name_and_a_choice_is_written) {
    test::SurfaceBench bench;
    const QTemporaryDir folder;
    QWidget window;
    test::show(window);
    QFileDialog* dialog = historyExport::ask(bench.coordinator, window);
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_TRUE(dialog->selectedFiles().value(0).endsWith("/Vantrix-History.csv"));
    const QString file = folder.filePath("mine.csv");
    Q_EMIT dialog->fileSelected(file);
    EXPECT_EQ(contentsOf(file).toStdString(), bench.coordinator.exportHistoryCSV());
    EXPECT_EQ(window.findChild<AlertPanel*>(), nullptr);
    dialog->close();
    test::settle();
}

TEST(HistoryExport, without_a_folder_for_documents_it_begins_at_home) {
    test::SurfaceBench bench;
    const QTemporaryDir home;
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", home.path().toLocal8Bit());
    QWidget window;
    test::show(window);
    QFileDialog* dialog = historyExport::ask(bench.coordinator, window);
    EXPECT_EQ(QDir(dialog->directory()).canonicalPath(), QDir(home.path()).canonicalPath());
    dialog->close();
    test::settle();
    qputenv("HOME", before);
}

TEST(HistoryExport, a_failure_is_shown) {
    test::SurfaceBench bench;
    QWidget window;
    test::show(window);
    QFileDialog* dialog = historyExport::ask(bench.coordinator, window);
    Q_EMIT dialog->fileSelected("/nonexistent/folder/a.csv");
    auto* alert = window.findChild<AlertPanel*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_TRUE(alert->accessibleDescription().contains("/nonexistent/folder/a.csv"));
    test::press(*alert, Qt::Key_Escape);
    dialog->close();
    test::settle();
    EXPECT_EQ(window.findChild<AlertPanel*>(), nullptr);
}

}  // namespace
}  // namespace vtx
