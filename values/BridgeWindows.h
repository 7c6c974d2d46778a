#pragma once

// What the bridge tells the windows that it borrows. Each window implements the one interface that
// names it; the bridge holds the pointer while the window lives and never deletes it.

struct ReverbResponseParams;

// The slot panel, FXS_Panel: brings itself into line with the effect now in its slot, rebuilding its
// effect panel when the type changed. Result: the effect type, or 0.
class BridgeSlotPanel {
public:
    virtual ~BridgeSlotPanel() = default;
    virtual int Reload() = 0;
};

// The reverb panner of one slot, FXPanner: the two pan vectors of an EAX reverb as the engine holds them.
class BridgePanner {
public:
    virtual ~BridgePanner() = default;
    virtual void SetVectors(const float reflectionsPan[3], const float latePan[3]) = 0;
};

// The response window, C3DReverbResponseDlg: the reverb of a slot, after each refresh of a reverb slot.
class BridgeResponseWindow {
public:
    virtual ~BridgeResponseWindow() = default;
    virtual void ShowParameters(int slot, const ReverbResponseParams& params) = 0;
};

// The position window, CEFXSrcPosDlg: redraws on each change of a source or the listener.
class BridgePositionWindow {
public:
    virtual ~BridgePositionWindow() = default;
    virtual void RedrawPositionWindow() = 0;
};

// The main dialog, CSonopticDlg: the check of its menu entry "Auto Play source on creation".
class BridgeMainDialog {
public:
    virtual ~BridgeMainDialog() = default;
    virtual void SetAutoPlayCheck(int flag) = 0;
};

// The context/source window, CEFXListSrcDlg: the same menu check, and the context's state, which the
// bridge hands on only if the factory ever reports one.
class BridgeContextSourceDialog {
public:
    virtual ~BridgeContextSourceDialog() = default;
    virtual void SetAutoPlayCheck(int flag) = 0;
    virtual void OnContextValue(int value) = 0;
};
