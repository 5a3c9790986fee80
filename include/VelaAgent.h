/* VelaAgent: drives a touchpad with four lit meeting buttons for a conferencing host.
 *
 * The one file a host needs, in C (C11) and C++. Link with the import library, or load
 * "VelaAgent.dll" by its full path and look the functions up by name: they are exported
 * undecorated, with the one calling convention of 64-bit Windows. For a host that loads, each
 * function has a pointer type (VelaInitFunction for Init); with VELA_AGENT_NO_PROTOTYPES defined
 * the functions are not declared, and the host may use their names itself.
 *
 * Conventions that hold for every function below:
 *
 *  1. There is one touchpad session per process and no handle for it: every call means "the"
 *     touchpad.
 *  2. A result of type VELA_BOOL is 0 or 1 in all its 32 bits. An argument of that type is false
 *     when 0, true otherwise.
 *  3. Any thread may call any function, at the same time as others; InitHapticTP and UnInitHapticTP
 *     only while no other thread is inside a haptic function.
 *  4. Calling order: InitLogger (optional), IsVelaPresent (optional), Init, the two callback
 *     setters, Activate, EnableFeature, then buttons, brightness, click mode and state in any
 *     order; finally UnInit and UnInitLogger. Both pairs may be repeated. The haptic functions are
 *     independent of that and have an order of their own: InitHapticTP, level, UnInitHapticTP.
 *  5. Callbacks run on the session's reader thread and, inside Activate, EnableFeature and UnInit,
 *     on the calling thread. They may call every function except UnInit. On the reader thread
 *     UnInit throws a C++ std::system_error, as that thread cannot wait for itself; in a callback
 *     made by UnInit it returns 0, and the outer call goes on; in one made by Activate or
 *     EnableFeature it closes the session, and the outer call ends without one. The library holds
 *     no lock during a callback, except that UnInit on other threads waits for the one in progress;
 *     but the next report waits, so return soon. A callback must not wait for a thread that may be
 *     inside UnInit, which waits for the callback: post to that thread, do not send. No exception
 *     may leave a callback.
 *  6. A failure is reported by a false result and a line in "VelaAgent.log"; most calls without a
 *     session log none. A C++ std::system_error is thrown only when the system refuses a mutex or a
 *     thread, and a std::bad_alloc when it refuses memory. These are exceptions of the library's
 *     own C++ runtime: a host in C, or in the C++ of another compiler, cannot catch them and is
 *     ended.
 *  7. Call UnInit before the process exits. A process that exits with the session open, or after a
 *     detachable touchpad was active, is ended by the C++ runtime ("terminate called") while the
 *     library is unloaded, because a thread was not joined; TerminateProcess avoids that. For the
 *     same reason such a process must not call FreeLibrary, and none may while the logger runs,
 *     whose thread would go on in memory that is no longer there. Do not call UnInit or
 *     UnInitLogger in DllMain, nor in the destructors of a DLL's static objects, which run inside
 *     it: both wait for threads, and no thread ends while the system's loader waits for DllMain.
 *  8. A light change is queued and written by a thread of the session's own. While writes are in
 *     flight (usually a few milliseconds; at most 30 seconds each, when a touchpad takes none)
 *     calls that queue another report wait for them, and so does UnInit. Light reports are queued
 *     in the order of the calls, also across threads; no call waits until another one's report is
 *     composed. After UnInit the lights are dark, whatever was still queued.
 *  9. While the touchpad is disabled (VELA_STATUS_TEMPORARILY_DISABLED, VELA_STATUS_DISABLED) it
 *     drives its lights itself: changes return 1, are stored, and are shown by the first light
 *     report afterwards, except breathing, which stops with the event that ends the disable. A
 *     change that brings back the lights from before the disable may be stored and not
 *     written; SetButtonBreathing always writes the lights as they are set.
 */
#ifndef VELA_AGENT_H
#define VELA_AGENT_H

#if defined(_WIN32) && !defined(_WIN64)
#error "VelaAgent.dll is a 64-bit library: build the host as a 64-bit program."
#endif

#include <stdint.h>
#include <wchar.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef int32_t VELA_BOOL;

/* Button ids. Other ids are accepted everywhere and drive no light. */
enum VelaButton {
    VELA_BUTTON_CAMERA = 0,
    VELA_BUTTON_MICROPHONE = 1,
    VELA_BUTTON_CHAT = 2, /* the only one that can breathe */
    VELA_BUTTON_SHARE_SCREEN = 3
};

/* Values for Activate. Others are only stored and passed to the status callback; the lights are
 * dark then. */
enum VelaActivation {
    VELA_ACTIVE = 0,                  /* camera and microphone lights toggle with their presses */
    VELA_ACTIVE_HOST_SETS_LIGHTS = 1, /* presses are reported, every light is left to the host */
    VELA_DEACTIVATED = 4, /* lights dark, buttons no longer visible; the state after Init */
    VELA_SUSPENDED = 5    /* as 4, but 0 or 1 brings the buttons back as they were */
};

/* Values passed to the status callback, besides the value given to Activate. */
enum VelaStatus {
    VELA_STATUS_NORMAL = 0,
    VELA_STATUS_TEMPORARILY_DISABLED = 2, /* by the user's gesture */
    VELA_STATUS_DISABLED = 3,             /* the touchpad is off, as in tablet mode */
    VELA_STATUS_DEACTIVATED = 4
};

/* Modes for SetClickMode. Any other one writes the device's setting back unchanged. */
enum VelaClickMode { VELA_CLICK_MODE_OFF = 0, VELA_CLICK_MODE_ON = 1 };

/* Results of Init. */
enum VelaInitResult {
    VELA_INIT_OPEN = 1,
    VELA_INIT_NOT_FOUND = 2,    /* no touchpad, or it could not be opened */
    VELA_INIT_HELD_BY_OTHER = 3 /* another process has it open */
};

/* Reports a button press, on the reader thread; there is no event for the release. newLightState is
 * 1 when the button's light was off before the press, 0 when it was on. */
typedef void (*VelaButtonPressCallback)(uint32_t buttonId, uint32_t newLightState);
/* Reports the touchpad's status: a VelaStatus, or the value given to Activate. Changes that the
 * touchpad makes itself are reported only in VELA_ACTIVE and VELA_ACTIVE_HOST_SETS_LIGHTS. */
typedef void (*VelaStatusChangeCallback)(uint32_t status);

#ifndef VELA_AGENT_NO_PROTOTYPES

/* ---- Logger ---------------------------------------------------------------------------------- */

/* Starts writing "VelaAgent.log", in UTF-8, into `directory` (zero-terminated; null does nothing).
 * It has to be absolute, as a relative one is resolved against the current directory at every line;
 * it has to exist and be writable, as otherwise there is no file and no error is reported; and only
 * the user should be able to write there, as the log is appended to whatever file has its name. At
 * more than 5 MiB the file becomes "VelaAgent.log.old". Calls nest; the first one's directory
 * stays. Two processes can log into one directory, but lines that they write at the same instant
 * may overwrite each other: give each a directory of its own. */
void InitLogger(const wchar_t* directory);
/* Ends one InitLogger; does nothing without one. After the last one every line logged before is in
 * the file. */
void UnInitLogger(void);

/* ---- Session --------------------------------------------------------------------------------- */

/* Finds the touchpad and opens it for this process alone. Returns a VelaInitResult. With a session
 * open it returns 1, or 2 (and the session stays open) when no touchpad is found any more. So it
 * also returns 1 for a session whose touchpad was unplugged in between: call UnInit first. A file
 * "Vela.ini" beside the library can name the vendors to look for. Only the touchpad itself receives
 * requests: of other HID devices the scan reads what the system knows, so none of them has to
 * answer. During another thread's UnInit Init either finds the session still open, or waits until
 * it is closed and opens the next one. */
int32_t Init(void);
/* Darkens the lights, closes the touchpad and forgets both callbacks. Once it has returned none is
 * called, unless another thread is inside Activate or EnableFeature just then. Returns 0 when no
 * session was open. Waits for the writes in flight (convention 8), and for other threads' calls
 * that wait for the device (SetClickMode, GetClickMode). Must not be called in a callback
 * (convention 5), nor in DllMain (convention 7). */
VELA_BOOL UnInit(void);
/* Returns 1 without a session when a touchpad is attached, or when a process that this one has no
 * access to (another user's) has one open. With a session it returns the state of the session's own
 * touchpad: 0 once a detachable one (IsDetachable) was unplugged, even when it is back; always 1
 * for any other. Without a session a call opens every HID interface of the machine, keeps the
 * preparsed data of those that are no touchpad, and a mutex handle while another process has a
 * session, and logs at least one line: call it when a device arrives, never on a timer. Such a
 * call sends no request to any device, the touchpad included. */
VELA_BOOL IsVelaPresent(void);

/* Sets a callback; null clears it. One that another thread is about to call is still called once.
 * Both have to be set again after each Init; any thread may set them, also in a callback. */
void SetVelaButtonPressCallback(VelaButtonPressCallback callback);
void SetVelaStatusChangeCallback(VelaStatusChangeCallback callback);

/* Switches the feature as a whole: while it is off, as after Init, every light is dark. Switching
 * it off, as UnInit does too, also ends the chat's breathing and, while the touchpad is activated,
 * not in VELA_STATUS_DISABLED, and a status callback is set, a temporary disable:
 * VELA_STATUS_NORMAL is reported then. Returns 0 without a session. */
VELA_BOOL EnableFeature(VELA_BOOL enable);
VELA_BOOL IsFeatureEnabled(void);
/* Sets a VelaActivation. Returns 0 without a session; 1 at once, without a callback, when it is the
 * current one. Otherwise the status callback is called, twice for VELA_DEACTIVATED. */
VELA_BOOL Activate(uint32_t activation);
/* Returns 1 in VELA_ACTIVE and VELA_ACTIVE_HOST_SETS_LIGHTS. */
VELA_BOOL IsActivated(void);

/* ---- Buttons: buttonId is a VelaButton; 0 without a session ---------------------------------- */

/* An enabled button reports its presses; its light shows when it is visible as well. Both are off
 * after Init. */
VELA_BOOL EnableSingleButton(uint32_t buttonId, VELA_BOOL enable);
VELA_BOOL IsSingleButtonEnabled(uint32_t buttonId);
VELA_BOOL SetButtonVisible(uint32_t buttonId, VELA_BOOL visible);
/* Selects which of a button's two lights is lit. Chat and share screen have one: no change. */
VELA_BOOL SetButtonLight(uint32_t buttonId, VELA_BOOL on);

/* The chat light's breathing is enabled first, then started and stopped. Other buttons accept the
 * calls and do not breathe. */
VELA_BOOL EnableChatBreathing(VELA_BOOL enable);
VELA_BOOL IsChatBreathingEnabled(void);
VELA_BOOL SetButtonBreathing(uint32_t buttonId, VELA_BOOL on);

/* Brightness of all lit lights, 0 (dark) to 255; the low 8 bits count. 3 until set. Ignored without
 * a session, kept after it. */
void SetVelaBrightness(uint32_t level);
uint32_t GetVelaBrightness(void);

/* ---- Touchpad settings and state ------------------------------------------------------------- */

/* Sets a VelaClickMode. VELA_CLICK_MODE_ON sets `value`, in the device's own units and not checked
 * against its range. The device keeps it after UnInit. Returns 1 when it was written; 0 without a
 * session, and for touchpads without the setting. Synchronous. */
int32_t SetClickMode(uint32_t mode, uint16_t value);
/* Returns 1 when the click mode is on; 0 when it is off or cannot be read. Synchronous. */
uint32_t GetClickMode(void);
/* Requests the firmware's state, which is reported through the status callback. Returns 0 without a
 * session, and for touchpads that have no such request. */
VELA_BOOL UpdateVelaState(void);
/* Returns 1 for touchpads that can be taken off the machine, and for those whose product string
 * cannot be read. The first one that was read decides for the life of the process. */
VELA_BOOL IsDetachable(void);
/* Returns whether the swipe gesture works in both directions. 0 without a session, and for the
 * older touchpad family's firmware before version 99. */
VELA_BOOL IsSupportBiDirectionSwipe(void);

/* ---- Haptic touchpad: a session of its own, independent of the one above --------------------- */

/* Returns 1 when a touchpad whose haptic feedback can be configured is attached. Costs as much as
 * IsVelaPresent without a session, and sends no request to any device either. */
VELA_BOOL IsHapticTPPresent(void);
/* Returns 1 when it is open, now or already; 0 when there is none, when its feedback has no
 * intensity, or when another process holds it. Sends no request to any device. No other thread may
 * be inside a haptic function. */
VELA_BOOL InitHapticTP(void);
/* Returns 0 when it was not open. No other thread may be inside a haptic function: two closing
 * threads would close the handle twice. */
VELA_BOOL UnInitHapticTP(void);
/* Sets the strength of the feedback, in the device's own units (mostly 0 to 100) and not checked
 * against its range. Returns 1 when it was set. Synchronous. */
VELA_BOOL SetHapticTPIntensityLevel(uint32_t level);
/* Returns the device's current intensity; 0 on any failure. Synchronous. */
uint32_t GetHapticTPIntensityLevel(void);

#endif /* VELA_AGENT_NO_PROTOTYPES */

/* ---- Pointers to the functions above, for a host that looks them up by name ------------------ */

typedef void (*VelaInitLoggerFunction)(const wchar_t* directory);
typedef void (*VelaUnInitLoggerFunction)(void);
typedef int32_t (*VelaInitFunction)(void);
typedef VELA_BOOL (*VelaUnInitFunction)(void);
typedef VELA_BOOL (*VelaIsVelaPresentFunction)(void);
typedef void (*VelaSetVelaButtonPressCallbackFunction)(VelaButtonPressCallback callback);
typedef void (*VelaSetVelaStatusChangeCallbackFunction)(VelaStatusChangeCallback callback);
typedef VELA_BOOL (*VelaEnableFeatureFunction)(VELA_BOOL enable);
typedef VELA_BOOL (*VelaIsFeatureEnabledFunction)(void);
typedef VELA_BOOL (*VelaActivateFunction)(uint32_t activation);
typedef VELA_BOOL (*VelaIsActivatedFunction)(void);
typedef VELA_BOOL (*VelaEnableSingleButtonFunction)(uint32_t buttonId, VELA_BOOL enable);
typedef VELA_BOOL (*VelaIsSingleButtonEnabledFunction)(uint32_t buttonId);
typedef VELA_BOOL (*VelaSetButtonVisibleFunction)(uint32_t buttonId, VELA_BOOL visible);
typedef VELA_BOOL (*VelaSetButtonLightFunction)(uint32_t buttonId, VELA_BOOL on);
typedef VELA_BOOL (*VelaEnableChatBreathingFunction)(VELA_BOOL enable);
typedef VELA_BOOL (*VelaIsChatBreathingEnabledFunction)(void);
typedef VELA_BOOL (*VelaSetButtonBreathingFunction)(uint32_t buttonId, VELA_BOOL on);
typedef void (*VelaSetVelaBrightnessFunction)(uint32_t level);
typedef uint32_t (*VelaGetVelaBrightnessFunction)(void);
typedef int32_t (*VelaSetClickModeFunction)(uint32_t mode, uint16_t value);
typedef uint32_t (*VelaGetClickModeFunction)(void);
typedef VELA_BOOL (*VelaUpdateVelaStateFunction)(void);
typedef VELA_BOOL (*VelaIsDetachableFunction)(void);
typedef VELA_BOOL (*VelaIsSupportBiDirectionSwipeFunction)(void);
typedef VELA_BOOL (*VelaIsHapticTPPresentFunction)(void);
typedef VELA_BOOL (*VelaInitHapticTPFunction)(void);
typedef VELA_BOOL (*VelaUnInitHapticTPFunction)(void);
typedef VELA_BOOL (*VelaSetHapticTPIntensityLevelFunction)(uint32_t level);
typedef uint32_t (*VelaGetHapticTPIntensityLevelFunction)(void);

/* Expands X(name) for every function, as for a host that looks them all up. */
#define VELA_AGENT_FOR_EACH_EXPORT(X) \
    X(Activate)                       \
    X(EnableChatBreathing)            \
    X(EnableFeature)                  \
    X(EnableSingleButton)             \
    X(GetClickMode)                   \
    X(GetHapticTPIntensityLevel)      \
    X(GetVelaBrightness)              \
    X(Init)                           \
    X(InitHapticTP)                   \
    X(InitLogger)                     \
    X(IsActivated)                    \
    X(IsChatBreathingEnabled)         \
    X(IsDetachable)                   \
    X(IsFeatureEnabled)               \
    X(IsHapticTPPresent)              \
    X(IsSingleButtonEnabled)          \
    X(IsSupportBiDirectionSwipe)      \
    X(IsVelaPresent)                  \
    X(SetButtonBreathing)             \
    X(SetButtonLight)                 \
    X(SetButtonVisible)               \
    X(SetClickMode)                   \
    X(SetHapticTPIntensityLevel)      \
    X(SetVelaBrightness)              \
    X(SetVelaButtonPressCallback)     \
    X(SetVelaStatusChangeCallback)    \
    X(UnInit)                         \
    X(UnInitHapticTP)                 \
    X(UnInitLogger)                   \
    X(UpdateVelaState)

#ifdef __cplusplus
}
#endif

#endif
