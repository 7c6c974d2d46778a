#pragma once

#include <cstdint>

class CObservableNumber;

// The receiver of every change that the user makes to a value: the bridge. subject is the number
// value that changed, or null for the check box, combo box and radio row families, whose new state
// travels in extra.
class COrvexObservableCallback {
public:
    virtual ~COrvexObservableCallback() = default;
    virtual void OnValueChanged(CObservableNumber* subject, std::uint16_t kind, std::uint16_t category,
                                std::uint16_t index, std::uint16_t param, std::uint16_t extra) = 0;
};

// The callback of a number value and the five numbers by which the bridge finds the engine
// property behind it. All zero until a panel binds the value.
class COrvexObservableCallbackMechanism {
public:
    virtual ~COrvexObservableCallbackMechanism() = default;

    void SetIdentifiers(std::uint16_t kind, std::uint16_t category, std::uint16_t index, std::uint16_t param,
                        std::uint16_t extra)
    {
        Kind = kind;
        Category = category;
        Index = index;
        Param = param;
        Extra = extra;
    }

    // A value without callback is silent towards the engine.
    COrvexObservableCallback* Callback = nullptr;
    std::uint16_t Kind = 0;
    std::uint16_t Category = 0;
    // Slot or source number; 65535 for the listener.
    std::uint16_t Index = 0;
    std::uint16_t Param = 0;
    // Second index, for the aux send gains of a source; 65535 where unused.
    std::uint16_t Extra = 0;
    // Nothing sets it; the callback step honours it all the same.
    std::int32_t Suppressed = 0;
};
