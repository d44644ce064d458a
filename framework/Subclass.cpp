#include "framework/Subclass.h"

#include <algorithm>
#include <cstddef>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace {

struct Link {
    SubclassProcedure procedure;
    UINT_PTR id;
    DWORD_PTR data;
    bool removed;
};

struct Chain {
    WNDPROC original = nullptr;
    std::vector<Link> links;    // the last added runs first
    int messagesInProgress = 0; // while above 0, removed links keep their places in `links`
    bool destroyed = false;
};

// Windows of any thread: a host may open pages on two threads. A chain itself is only touched on its
// window's thread, where its messages arrive.
std::mutex chainsLock;
std::unordered_map<HWND, Chain*>& Chains() {
    static auto* chains = new std::unordered_map<HWND, Chain*>; // outlives windows destroyed at exit
    return *chains;
}

Chain* ChainOf(HWND window) {
    const std::lock_guard lock(chainsLock);
    const auto found = Chains().find(window);
    return found == Chains().end() ? nullptr : found->second;
}

// One message on its way down a window's chain: the next link to run is links[next - 1].
struct Frame {
    HWND window;
    Chain* chain;
    std::size_t next;
};
thread_local std::vector<Frame> frames;

LRESULT CALLBACK Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

void Forget(HWND window) {
    const std::lock_guard lock(chainsLock);
    Chains().erase(window);
}

// Gives the window its own procedure back once nobody else has subclassed it after us; otherwise the
// empty chain stays and passes every message on.
void Compact(HWND window, Chain* chain) {
    std::erase_if(chain->links, [](const Link& link) { return link.removed; });
    if (!chain->links.empty() ||
        reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(window, GWLP_WNDPROC)) != Dispatch)
        return;
    ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(chain->original));
    Forget(window);
    delete chain;
}

LRESULT CALLBACK Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Chain* chain = ChainOf(window);
    if (!chain)
        return ::DefWindowProcW(window, message, wParam, lParam);
    ++chain->messagesInProgress;
    frames.push_back({window, chain, chain->links.size()});
    const LRESULT result = NextSubclass(window, message, wParam, lParam);
    frames.pop_back();
    if (message == WM_NCDESTROY) {
        // The handle may come back for another window; messages still running here finish first.
        chain->destroyed = true;
        Forget(window);
    }
    if (--chain->messagesInProgress == 0) {
        if (chain->destroyed)
            delete chain;
        else if (std::any_of(chain->links.begin(), chain->links.end(),
                             [](const Link& link) { return link.removed; }))
            Compact(window, chain);
    }
    return result;
}

} // namespace

bool AddSubclass(HWND window, SubclassProcedure procedure, UINT_PTR id, DWORD_PTR data) {
    if (!window || !procedure || !::IsWindow(window))
        return false;
    Chain* chain = ChainOf(window);
    if (!chain) {
        chain = new Chain;
        {
            const std::lock_guard lock(chainsLock);
            Chains()[window] = chain;
        }
        chain->original = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Dispatch)));
        if (!chain->original) {
            const std::lock_guard lock(chainsLock);
            Chains().erase(window);
            delete chain;
            return false;
        }
    }
    for (Link& link : chain->links)
        if (!link.removed && link.procedure == procedure && link.id == id) {
            link.data = data;
            return true;
        }
    chain->links.push_back({procedure, id, data, false});
    return true;
}

void RemoveSubclass(HWND window, SubclassProcedure procedure, UINT_PTR id) {
    Chain* chain = ChainOf(window);
    if (!chain)
        return;
    for (Link& link : chain->links)
        if (link.procedure == procedure && link.id == id)
            link.removed = true;
    if (chain->messagesInProgress == 0)
        Compact(window, chain);
}

LRESULT NextSubclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // The innermost message to this window on this thread; a message sent on from inside a procedure
    // has its own frame above.
    auto frame =
        std::find_if(frames.rbegin(), frames.rend(), [window](const Frame& f) { return f.window == window; });
    if (frame == frames.rend()) {
        const Chain* chain = ChainOf(window);
        return chain ? ::CallWindowProcW(chain->original, window, message, wParam, lParam)
                     : ::DefWindowProcW(window, message, wParam, lParam);
    }
    const std::size_t index = static_cast<std::size_t>(frames.rend() - frame) - 1;
    Chain* chain = frame->chain;
    while (frames[index].next > 0) {
        const Link link = chain->links[--frames[index].next];
        if (!link.removed)
            return link.procedure(window, message, wParam, lParam, link.id, link.data);
    }
    return ::CallWindowProcW(chain->original, window, message, wParam, lParam);
}
