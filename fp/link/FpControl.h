#pragma once

#include <condition_variable>
#include <string>
#include <thread>
#include <vector>

#include "fp/core/KeyTypes.h"
#include "fp/link/IFpAdapter.h"
#include "kt/Delegate.h"
#include "kt/Mutex.h"

namespace log4cpp {
class Category;
}

namespace FP {

/// The panel controller's operations as methods, and its unsolicited reports
/// (temperature, fan speeds, keys, start-up) passed on to listeners.
/// Threads: operations from any thread (each is one frame or one round trip on
/// the adapter); listeners run on the adapter's read thread, never with a lock
/// of this object held. Borrows: the adapter, whose read thread must be stopped
/// before this object is destroyed, since its handlers stay registered.
class FpControl {
public:
    /// The unit's fans.
    enum Fan_e { FAN_1 = 0, FAN_2 = 1, FAN_3 = 2 };
    /// LED numbers and unit states are the controller firmware's; they pass
    /// through unchanged as one byte.
    enum Led_e : unsigned char {
        LED_0 = 0,
        LED_1 = 1,
        LED_2 = 2,
        LED_3 = 3,
        LED_4 = 4,
        LED_5 = 5,
        LED_6 = 6,
        LED_7 = 7
    };
    /// The unit state the panel's status light shows.
    enum UnitStatus_e : unsigned char {
        STATUS_OFF = 0,
        STATUS_OK = 1,
        STATUS_WARNING = 2,
        STATUS_ERROR = 3,
        STATUS_BOOTING = 4
    };

    /// Receives temperature reports.
    using TemperatureDelegate = KT::CDelegate<void(short)>;
    /// Receives fan speed reports, by fan.
    using FanSpeedDelegate = KT::CDelegate<void(Fan_e, unsigned short)>;
    /// Receives raw key messages.
    using KeyDelegate = KT::CDelegate<void(Key_e, KeyState_e)>;
    /// Told when the controller reports that it (re)started.
    using InitDelegate = KT::CDelegate<void()>;

    /// Operation bytes of the wire protocol.
    enum Op : unsigned char {
        OP_CLEAR_DISPLAY = '0',
        OP_SLOT_ID = 'A',
        OP_BRIGHTNESS = 'B',
        OP_TEMPERATURE = 'C',
        OP_SLOT_VOLTAGE = 'D',
        OP_FAN_STATE = 'E',
        OP_FAN1_SPEED = 'F',
        OP_FAN2_SPEED = 'G',
        OP_FAN3_SPEED = 'H',
        OP_DISPLAY_TYPE = 'I',
        OP_KEY = 'K',
        OP_LED = 'L',
        OP_SUBSCRIBE = 'P',
        OP_INVERT_FONT = 'R',
        OP_TEXT = 'T',
        OP_UNIT_STATUS = 'U',
        OP_VERSION = 'V',
        OP_COLUMN = 'X',
        OP_ROW = 'Y',
        OP_INIT = 'i'
    };

    /// Works through adapter.
    explicit FpControl(IFpAdapter& adapter);
    ~FpControl();
    FpControl(const FpControl&) = delete;
    FpControl& operator=(const FpControl&) = delete;

    /// Asks for the unit's slot number; 0 when no answer came.
    unsigned char GetTesselSlotId();
    /// Asks for the slot's supply voltage; 0 when no answer came.
    float GetTesselSlotVoltage();
    /// Asks which display the panel has; 0 when no answer came.
    unsigned char GetDisplayType();
    /// Asks for the controller firmware's version; empty when no answer came.
    std::string GetVersion();

    /// Turns an LED on or off. The set operations return false when the frame
    /// could not be written.
    bool SetLed(Led_e led, bool on);
    /// Sets the status light.
    bool SetUnitStatus(UnitStatus_e status);
    /// Blanks the display.
    bool ClearDisplay();
    /// Sets the display brightness.
    bool SetBrightness(unsigned char level);
    /// Turns the fans on or off.
    bool SetTesselFanState(bool on);
    /// Makes the text that follows reverse video, or normal again.
    bool InvertFont(bool inverted);
    /// Writes text at column and row, in reverse video when inverted.
    bool DisplayText(std::string const& text, unsigned char column, unsigned char row,
                     bool inverted);

    /// Asks for temperature and fan reports every interval tenths of a second,
    /// replacing any earlier subscription; the delegates receive them. Does nothing
    /// for an interval of 0 or nothing to report.
    void SubscribeToStatusUpdates(unsigned char interval, bool temperature,
                                  std::vector<Fan_e> const& fans, TemperatureDelegate onTemperature,
                                  FanSpeedDelegate onFanSpeed);
    /// Stops the reports and drops their listeners.
    void UnsubscribeFromStatusUpdates();

    /// Adds a key listener.
    void SetKeyPressHandler(KeyDelegate handler);
    /// Once this returns no key listener runs any more, unless it is called
    /// from within a key listener (that call finishes on its own).
    void ClearKeyPressHandler();
    /// Adds a listener told when the controller restarts.
    void SetInitHandler(InitDelegate handler);
    /// Drops every restart listener, as ClearKeyPressHandler does for keys.
    void ClearInitHandler();

    /// Message handlers; they run on the adapter's read thread.
    void HandleTemperature(IFpAdapter::Payload const& payload);
    /// Fan report of fan 1.
    void HandleFan1Speed(IFpAdapter::Payload const& payload);
    /// Fan report of fan 2.
    void HandleFan2Speed(IFpAdapter::Payload const& payload);
    /// Fan report of fan 3.
    void HandleFan3Speed(IFpAdapter::Payload const& payload);
    /// Key message: key code, then state.
    void HandleKeyPress(IFpAdapter::Payload const& payload);
    /// The controller restarted.
    void HandleFpInit(IFpAdapter::Payload const& payload);

    /// How long the Get operations wait for an answer.
    static const unsigned int kRequestTimeoutMs = 1000;

private:
    void HandleFanSpeed(Fan_e fan, IFpAdapter::Payload const& payload);

    log4cpp::Category& log_;
    IFpAdapter& adapter_;
    template <class List, class... Args>
    void Deliver(const List& listeners, Args... args);
    template <class List>
    void ClearListeners(List& listeners);
    template <class List>
    void AddListener(List& listeners, const List& listener, unsigned char op,
                     const IFpAdapter::Handler& onMessage);

    TemperatureDelegate temperatureListeners_;
    FanSpeedDelegate fanListeners_;
    KeyDelegate keyListeners_;
    InitDelegate initListeners_;
    // Listeners come and go (a keypad's destructor clears its own) while the
    // read thread delivers: a list is copied under this lock and called
    // outside it, and clearing waits for a delivery under way unless the
    // listener itself is clearing.
    KT::CMutex listenersMutex_;
    std::condition_variable_any idle_;
    unsigned calls_ = 0;
    std::thread::id caller_;
};

}  // namespace FP
