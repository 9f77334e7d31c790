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

// The panel controller's operations as methods, and its unsolicited reports
// (temperature, fan speeds, keys, start-up) passed on to listeners.
class FpControl {
public:
    enum Fan_e { FAN_1 = 0, FAN_2 = 1, FAN_3 = 2 };
    // LED numbers and unit states are the controller firmware's; they pass
    // through unchanged as one byte.
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
    enum UnitStatus_e : unsigned char {
        STATUS_OFF = 0,
        STATUS_OK = 1,
        STATUS_WARNING = 2,
        STATUS_ERROR = 3,
        STATUS_BOOTING = 4
    };

    using TemperatureDelegate = KT::CDelegate<void(short)>;
    using FanSpeedDelegate = KT::CDelegate<void(Fan_e, unsigned short)>;
    using KeyDelegate = KT::CDelegate<void(Key_e, KeyState_e)>;
    using InitDelegate = KT::CDelegate<void()>;

    // Operation bytes of the wire protocol.
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

    explicit FpControl(IFpAdapter& adapter);
    ~FpControl();
    FpControl(const FpControl&) = delete;
    FpControl& operator=(const FpControl&) = delete;

    unsigned char GetTesselSlotId();
    float GetTesselSlotVoltage();
    unsigned char GetDisplayType();
    std::string GetVersion();

    bool SetLed(Led_e led, bool on);
    bool SetUnitStatus(UnitStatus_e status);
    bool ClearDisplay();
    bool SetBrightness(unsigned char level);
    bool SetTesselFanState(bool on);
    bool InvertFont(bool inverted);
    bool DisplayText(std::string const& text, unsigned char column, unsigned char row,
                     bool inverted);

    void SubscribeToStatusUpdates(unsigned char interval, bool temperature,
                                  std::vector<Fan_e> const& fans, TemperatureDelegate onTemperature,
                                  FanSpeedDelegate onFanSpeed);
    void UnsubscribeFromStatusUpdates();

    void SetKeyPressHandler(KeyDelegate handler);
    // Once this returns no key listener runs any more, unless it is called
    // from within a key listener (that call finishes on its own).
    void ClearKeyPressHandler();
    void SetInitHandler(InitDelegate handler);
    void ClearInitHandler();

    // Message handlers; they run on the adapter's read thread.
    void HandleTemperature(IFpAdapter::Payload const& payload);
    void HandleFan1Speed(IFpAdapter::Payload const& payload);
    void HandleFan2Speed(IFpAdapter::Payload const& payload);
    void HandleFan3Speed(IFpAdapter::Payload const& payload);
    void HandleKeyPress(IFpAdapter::Payload const& payload);
    void HandleFpInit(IFpAdapter::Payload const& payload);

    static const unsigned int kRequestTimeoutMs = 1000;

private:
    void HandleFanSpeed(Fan_e fan, IFpAdapter::Payload const& payload);

    log4cpp::Category& log_;
    IFpAdapter& adapter_;
    template <class List, class... Args>
    void Deliver(const List& listeners, Args... args);
    template <class List>
    void ClearListeners(List& listeners);

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
