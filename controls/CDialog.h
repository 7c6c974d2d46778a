#pragma once

#include <QDialog>

// A dialog with the life of a template dialog: OnInitDialog runs once, when the window first shows
// (after its owner has filled its members), and DoModal runs it modally.
class CDialog : public QDialog {
public:
    explicit CDialog(QWidget* parent = nullptr);

    int DoModal() { return exec(); }
    // Runs OnInitDialog now, as the creation of a child dialog's window does, if it has not run yet:
    // a child made while its parent is hidden must not wait for the first show to bind its values.
    void InitDialog();

protected:
    virtual void OnInitDialog() {}
    void showEvent(QShowEvent* event) override;

private:
    bool m_initialized = false;
};
