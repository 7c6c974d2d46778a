#include "shell/CRenderDialog.h"

#include "controls/AfxMessageBox.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QProgressDialog>
#include <QThread>

#include <atomic>
#include <thread>

CRenderDialog::CRenderDialog(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Render to WAV"));
    auto* form = new QFormLayout(this);
    Length = new QDoubleSpinBox(this);
    Length->setRange(0, 3600);
    Length->setDecimals(2);
    Length->setSuffix(QStringLiteral(" s"));
    Length->setSpecialValueText(QStringLiteral("the longest source"));
    Length->setAccessibleName(QStringLiteral("Length of the sources"));
    Tail = new QDoubleSpinBox(this);
    Tail->setRange(-1, RenderOptions::kMaxAutomaticTail);
    Tail->setDecimals(2);
    Tail->setValue(-1);
    Tail->setSuffix(QStringLiteral(" s"));
    Tail->setSpecialValueText(QStringLiteral("until silent (-90 dBFS)"));
    Tail->setAccessibleName(QStringLiteral("Tail after the sources"));
    Sample = new QComboBox(this);
    Sample->addItems({QStringLiteral("32-bit float"), QStringLiteral("16-bit PCM")});
    Sample->setAccessibleName(QStringLiteral("Samples"));
    form->addRow(QStringLiteral("Sources play for:"), Length);
    form->addRow(QStringLiteral("Then a tail of:"), Tail);
    form->addRow(QStringLiteral("Samples:"), Sample);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

RenderOptions CRenderDialog::Options() const
{
    RenderOptions options;
    // The spin boxes' lowest values stand for "automatic".
    options.length = Length->value() > 0 ? Length->value() : -1;
    options.tail = Tail->value() >= 0 ? Tail->value() : -1;
    options.sample = Sample->currentIndex() == 1 ? WaveWriter::Sample::Int16 : WaveWriter::Sample::Float32;
    return options;
}

void RenderSceneWithProgress(QWidget* parent, const SceneSnapshot& scene, RenderOptions options, const QString& path)
{
    std::atomic<int> permille{0};
    std::atomic<bool> cancel{false};
    std::atomic<bool> finished{false};
    options.progress = [&](double done) {
        permille = static_cast<int>(done * 1000);
        return !cancel;
    };
    RenderResult result;
    const std::string target = QFile::encodeName(path).toStdString();
    std::thread worker([&] {
        result = RenderSceneToWave(scene, options, target);
        finished = true;
    });
    QProgressDialog progress(QStringLiteral("Rendering %1...").arg(QFileInfo(path).fileName()),
                             QStringLiteral("Cancel"), 0, 1000, parent);
    progress.setWindowTitle(QStringLiteral("Render to WAV"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);
    progress.show();
    // The dialog stays responsive while the worker renders: events are handled between looks.
    while (!finished) {
        progress.setValue(permille);
        if (progress.wasCanceled())
            cancel = true;
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
    worker.join();
    progress.close();
    if (result.cancelled)
        return;
    if (!result.ok) {
        AfxMessageBox(QString::fromStdString(result.error));
        return;
    }
    AfxMessageBox(QStringLiteral("Rendered %1 s into %2")
                      .arg(static_cast<double>(result.frames) / result.frequency, 0, 'f', 2)
                      .arg(QFileInfo(path).fileName()));
}
