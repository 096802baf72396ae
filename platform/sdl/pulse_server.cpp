#include "platform/sdl/pulse_server.h"

#ifdef LUMENFOLD_PULSE

#include <cstdlib>
#include <memory>
#include <pulse/pulseaudio.h>
#include <string>

namespace lumenfold {

namespace {

// The name of the driver is SDL's; without a wish it is the first one tried.
bool pulseWished() {
    const char* wish = std::getenv("SDL_AUDIODRIVER");
    return wish == nullptr || *wish == 0 || std::string(wish).find("pulse") != std::string::npos;
}

void keepSinkMissing(pa_context*, const pa_server_info* info, void* missing) {
    *static_cast<bool*>(missing) = info != nullptr && info->default_sink_name == nullptr;
}

// Lets the connection do its work until done() holds; false if it breaks before.
template <class Done>
bool iterateUntil(pa_mainloop* loop, pa_context* context, Done done) {
    while (!done())
        if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(context)) || pa_mainloop_iterate(loop, 1, nullptr) < 0)
            return false;
    return true;
}

} // namespace

bool soundServerWithoutSink() {
    if (!pulseWished())
        return false;
    const std::unique_ptr<pa_mainloop, void (*)(pa_mainloop*)> loop(pa_mainloop_new(), pa_mainloop_free);
    const std::unique_ptr<pa_context, void (*)(pa_context*)> context(
        pa_context_new(pa_mainloop_get_api(loop.get()), "lumenfold"), pa_context_unref);
    if (pa_context_connect(context.get(), nullptr, PA_CONTEXT_NOFLAGS, nullptr) < 0 ||
        !iterateUntil(loop.get(), context.get(),
                      [&] { return pa_context_get_state(context.get()) == PA_CONTEXT_READY; }))
        return false;
    bool missing = false;
    const std::unique_ptr<pa_operation, void (*)(pa_operation*)> question(
        pa_context_get_server_info(context.get(), keepSinkMissing, &missing), pa_operation_unref);
    if (question != nullptr)
        iterateUntil(loop.get(), context.get(),
                     [&] { return pa_operation_get_state(question.get()) != PA_OPERATION_RUNNING; });
    pa_context_disconnect(context.get());
    return missing;
}

} // namespace lumenfold

#else

namespace lumenfold {

bool soundServerWithoutSink() {
    return false;
}

} // namespace lumenfold

#endif
