#include "values/CObservable.h"

#include <algorithm>

CObservable::~CObservable()
{
    RemoveAllObservers(1);
}

void CObservable::AddObserver(CObserver* observer, int notify)
{
    Observers.push_back(observer);
    observer->Subject = this;
    if (notify)
        observer->Update(this, kHintAttached, 0);
}

void CObservable::RemoveObserver(CObserver* observer, int notify)
{
    const auto found = std::find(Observers.begin(), Observers.end(), observer);
    if (found == Observers.end())
        return;
    Observers.erase(found);
    if (notify)
        observer->Update(this, kHintDetached, 0);
    observer->Subject = nullptr;
}

void CObservable::RemoveAllObservers(int notify)
{
    for (std::size_t removed = 0; removed < Observers.size(); ++removed)
        RemoveObserver(Observers.front(), notify);
    Observers.clear();
}

void CObservable::NotifyObservers(int hint, std::intptr_t extra)
{
    const std::size_t count = Observers.size();
    for (std::size_t i = 0; i < count; ++i)
        Observers.at(i)->Update(this, hint, extra);
}

CObserver::~CObserver()
{
    if (Subject)
        Subject->RemoveObserver(this, 0);
}

void CObserver::GangMove(CObserver*, double, int)
{
}

double CObserver::GangLimit(CObserver*, double delta, int)
{
    return delta;
}
