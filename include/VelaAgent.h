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
 *  3. Any thread may call any function, save where a function says otherwise: InitHapticTP and
 *     UnInitHapticTP do.
 *  4. Calling order: InitLogger (optional), IsVelaPresent (optional), Init, the two callback
 *     setters, Activate, EnableFeature, then buttons, brightness, click mode and state in any
 *     order; finally UnInit and UnInitLogger. Both pairs may be repeated. The haptic functions are
 *     independent of that and have an order of their own: InitHapticTP, level, UnInitHapticTP.
 *  5. Callbacks come on the session's reader thread and, inside Activate, EnableFeature and UnInit,
 *     on the calling thread. They may call every function but UnInit. On the reader thread that one
 *     is raised as a C++ std::system_error, as the thread cannot wait for itself; in a callback
 *     that UnInit itself makes it returns 0, and the outer call goes on; in one that Activate or
 *     EnableFeature makes it closes the session, and the outer call comes to its end without one.
 *     The library holds no lock meanwhile, save that UnInit on other threads waits for the one
 *     under way; but the next report waits: return soon. A callback must not wait for a thread that
 *     may be inside UnInit, which waits for the callback: post to that thread, do not send. No
 *     exception may leave a callback.
 *  6. A false result and, save for most calls without a session, a line in "VelaAgent.log" are
 *     the whole report of a failure. Only a mutex or a thread that the system refuses is raised,
 *     as a C++ std::system_error, and memory that it refuses, as a std::bad_alloc. These are
 *     exceptions of the library's own C++ runtime: a host in C, or in the C++ of another
 *     compiler, cannot catch them and is ended.
 *  7. Call UnInit before the process exits. One that exits with the session open, or after a
 *     detachable touchpad was active, is ended by the C++ runtime ("terminate called") while the
 *     library is unloaded, as threads that nobody waited for are; TerminateProcess avoids that. For
 *     the same reason FreeLibrary is not for such a process, nor while the logger runs: its thread
 *     would go on in memory that is no longer there. UnInit and UnInitLogger are not for DllMain,
 *     nor for the destructors of a DLL's static objects, which run inside it: both wait for
 *     threads, and none comes to its end while the system's loader waits for DllMain.
 *  8. A light change is queued and written by a thread of the session's own. While writes are in
 *     flight (usually a few milliseconds; at most 30 seconds each, when a touchpad takes none)
 *     calls that queue another wait for them, and so does UnInit. Light reports are queued in the
 *     order of the calls, those of several threads too; no call waits for another one's report to
 *     be made up. After UnInit the lights are dark, whatever was still queued.
 *  9. While the touchpad is disabled (VELA_STATUS_TEMPORARILY_DISABLED, VELA_STATUS_DISABLED) its
 *     lights are its own: changes return 1, are stored, and are shown by the first light report
 *     afterwards; save breathing, which the touchpad's event that ends the disable stops.
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

/* Values for Activate. Others are stored and passed to the status callback, nothing else; the
 * lights are dark then. */
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

/* Modes for SetClickMode. With others the device's setting is written back as it is. */
enum VelaClickMode { VELA_CLICK_MODE_OFF = 0, VELA_CLICK_MODE_ON = 1 };

/* Results of Init. */
enum VelaInitResult {
    VELA_INIT_OPEN = 1,
    VELA_INIT_NOT_FOUND = 2,    /* no touchpad, or it could not be opened */
    VELA_INIT_HELD_BY_OTHER = 3 /* another process has it open */
};

/* A button was pressed. newLightState: 1 when its light was off before the press, 0 when it was on.
 * There is no event for the release. On the reader thread. */
typedef void (*VelaButtonPressCallback)(uint32_t buttonId, uint32_t newLightState);
/* The touchpad's status changed: a VelaStatus, or the value given to Activate. Of changes that the
 * touchpad makes itself only those in VELA_ACTIVE and VELA_ACTIVE_HOST_SETS_LIGHTS are reported. */
typedef void (*VelaStatusChangeCallback)(uint32_t status);

#ifndef VELA_AGENT_NO_PROTOTYPES

/* ---- Logger ---------------------------------------------------------------------------------- */

/* Starts writing "VelaAgent.log", in UTF-8, into `directory` (zero-terminated; nothing is done for
 * null). It has to be absolute, as a relative one is looked for anew in the current directory at
 * every line; it has to exist, as one that does not, or cannot be written, gives no file and no
 * word about it; and only the user should be able to write there, as the log is appended to
 * whatever file has its name. At more than 5 MiB the file becomes "VelaAgent.log.old". Calls nest;
 * the first one's directory stays. Two processes that log into one directory both go on, but lines
 * that they write at the same instant may cover each other: give each a directory of its own. */
void InitLogger(const wchar_t* directory);
/* Ends one InitLogger; nothing is done without one. After the last one every line logged before is
 * in the file. */
void UnInitLogger(void);

/* ---- Session --------------------------------------------------------------------------------- */

/* Finds the touchpad and opens it for this process alone. A VelaInitResult. Open already: 1, or 2
 * (and it stays open) when no touchpad is found any more. 1 therefore says nothing of a session
 * whose touchpad was unplugged in between: UnInit first. Which vendors' touchpads are looked
 * for can be set in a file "Vela.ini" beside the library. Beside another thread's UnInit it either
 * finds the session open still, or waits until it is closed and opens the next one. */
int32_t Init(void);
/* Darkens the lights, closes the touchpad and forgets both callbacks. Once it has returned none is
 * called, unless another thread is inside Activate or EnableFeature just then. 0 when no session
 * was open. Takes as long as the writes in flight (convention 8), and as a call of another thread
 * that waits for the device (SetClickMode, GetClickMode). Not from a callback (convention 5), nor
 * from DllMain (convention 7). */
VELA_BOOL UnInit(void);
/* Without a session: 1 when a touchpad is attached, or a process that this one has no access to
 * (another user's) has one open. With a session it is about the session's own touchpad: 0 from the
 * moment that a detachable one (IsDetachable) is unplugged, also when it is back; 1 always for
 * any other. Without a session a call opens every HID interface of the machine, keeps the parsed
 * descriptors of those that are no touchpad, and a mutex handle while another process has a
 * session, and logs a line or more: query it when a device arrives, never on a timer. */
VELA_BOOL IsVelaPresent(void);

/* Null clears; a callback that another thread is about to call is called once more. To be set again
 * after each Init, from any thread, in a callback too. */
void SetVelaButtonPressCallback(VelaButtonPressCallback callback);
void SetVelaStatusChangeCallback(VelaStatusChangeCallback callback);

/* The feature as a whole: while off, every light is dark. Off after Init. Switching it off, as
 * UnInit does too, also ends the chat's breathing and, while the touchpad is activated and a status
 * callback is set, a temporary disable: VELA_STATUS_NORMAL is reported then. 0 without a session.
 */
VELA_BOOL EnableFeature(VELA_BOOL enable);
VELA_BOOL IsFeatureEnabled(void);
/* A VelaActivation. 0 without a session; 1 at once, with no callback, when it is the current one.
 * Otherwise the status callback is called, twice for VELA_DEACTIVATED. */
VELA_BOOL Activate(uint32_t activation);
/* 1 in VELA_ACTIVE and VELA_ACTIVE_HOST_SETS_LIGHTS. */
VELA_BOOL IsActivated(void);

/* ---- Buttons: buttonId is a VelaButton; 0 without a session ---------------------------------- */

/* An enabled button reports its presses; its light shows when it is visible as well. Both are off
 * after Init. */
VELA_BOOL EnableSingleButton(uint32_t buttonId, VELA_BOOL enable);
VELA_BOOL IsSingleButtonEnabled(uint32_t buttonId);
VELA_BOOL SetButtonVisible(uint32_t buttonId, VELA_BOOL visible);
/* Which of a button's two lights is lit. Chat and share screen have one light: no change. */
VELA_BOOL SetButtonLight(uint32_t buttonId, VELA_BOOL on);

/* Breathing of the chat light: to be allowed first, then started and stopped. Other buttons accept
 * it and do not breathe. */
VELA_BOOL EnableChatBreathing(VELA_BOOL enable);
VELA_BOOL IsChatBreathingEnabled(void);
VELA_BOOL SetButtonBreathing(uint32_t buttonId, VELA_BOOL on);

/* Brightness of all lit lights, 0 (dark) to 255; the low 8 bits count. 3 until set. Ignored without
 * a session, kept after it. */
void SetVelaBrightness(uint32_t level);
uint32_t GetVelaBrightness(void);

/* ---- Touchpad settings and state ------------------------------------------------------------- */

/* A VelaClickMode. VELA_CLICK_MODE_ON sets `value`, in the device's own units and not checked
 * against its range. The device keeps it after UnInit. 1 when it was written; 0 without a session,
 * and for touchpads without the setting. Synchronous. */
int32_t SetClickMode(uint32_t mode, uint16_t value);
/* 1 when the click mode is on; 0 when it is off or could not be read. Synchronous. */
uint32_t GetClickMode(void);
/* Requests the firmware's state, which is reported through the status callback. 0 without a
 * session, and for touchpads that have no such request. */
VELA_BOOL UpdateVelaState(void);
/* 1 for touchpads that can be taken off the machine, and for those whose name cannot be read. The
 * first name that was read decides for the life of the process. */
VELA_BOOL IsDetachable(void);
/* Whether the gesture works in both directions. 0 without a session, and for firmware older than
 * version 99 with the older gesture. */
VELA_BOOL IsSupportBiDirectionSwipe(void);

/* ---- Haptic touchpad: a session of its own, independent of the one above --------------------- */

/* 1 when a touchpad whose haptic feedback can be configured is attached. Costs what IsVelaPresent
 * costs without a session. */
VELA_BOOL IsHapticTPPresent(void);
/* 1 when it is open, now or already; 0 when there is none, when its feedback has no intensity, or
 * when another process has it to itself. Not while another thread is inside any haptic function. */
VELA_BOOL InitHapticTP(void);
/* 0 when it was not open. Not while another thread is inside any haptic function: two that close
 * would close its handle twice. */
VELA_BOOL UnInitHapticTP(void);
/* The strength of the feedback, in the device's own units (mostly 0 to 100) and not checked against
 * its range. 1 when it was set. Synchronous. */
VELA_BOOL SetHapticTPIntensityLevel(uint32_t level);
/* The device's current intensity; 0 on any failure. Synchronous. */
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

#ifdef __cplusplus
}
#endif

#endif
