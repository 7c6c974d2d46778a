#pragma once

#include "values/CObject.h"

#include <cstdint>
#include <vector>

class CObserver;

// The hints that an observer receives as the second argument of Update.
enum ObserverHint : int {
    kHintAboutToChange = 0, // Assign: GetValue still gives the old value
    kHintChanged = 1,       // Assign: the new value is stored
    kHintAttached = 2,      // AddObserver with notification
    kHintDetached = 3,      // RemoveObserver with notification; the receiver must not read the value
    kHintPaint = 4,         // a control to itself; extra is its painting context
    kHintPressed = 5,       // a knob or fader was pressed: the other observers show their pressed colour
    kHintReleased = 6,      // a knob or fader was released
};

// A subject with a list of observers. The order of attachment is the order of notification.
class CObservable : public CObject {
public:
    // Detaches all observers with notification (see RemoveAllObservers for who actually hears it).
    ~CObservable() override;

    void AddObserver(CObserver* observer, int notify);
    // Removes the first match; no match does nothing.
    void RemoveObserver(CObserver* observer, int notify);
    // Counts up against the shrinking list, so only the first half (rounded up) of the observers
    // hear hint 3 and lose their subject; the rest are dropped from the list unheard. Users of the
    // values rely on nothing better, and the panels detach their controls before a value dies.
    void RemoveAllObservers(int notify);
    // Tells every observer, first to last. The count is taken once; an observer that shrinks the
    // list during the round makes the checked read throw std::out_of_range.
    void NotifyObservers(int hint, std::intptr_t extra);

    const std::vector<CObserver*>& GetObservers() const { return Observers; }

protected:
    std::vector<CObserver*> Observers;
};

// Everything that watches a value: knobs, faders, displays.
class CObserver {
public:
    CObserver() = default;
    CObserver(const CObserver&) = delete;
    CObserver& operator=(const CObserver&) = delete;
    // Detaches from the subject without notification. The gang belongs to the fader, which leaves it
    // itself.
    virtual ~CObserver();

    virtual void Update(CObservable* subject, int hint, std::intptr_t extra) = 0;
    // The gang operations of the fader family; by default a gang move does nothing and a limit
    // passes the delta unchanged.
    virtual void GangMove(CObserver* sender, double delta, int mode);
    virtual double GangLimit(CObserver* sender, double delta, int mode);

    CObservable* Subject = nullptr;
    void* Gang = nullptr;
    std::int32_t GangActive = 1;
};
