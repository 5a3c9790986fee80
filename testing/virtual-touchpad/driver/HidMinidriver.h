// The kernel's headers and the interface between a HID minidriver and the HID class driver.
#pragma once

#include <ntddk.h>

#ifdef __MINGW32__

#include <windef.h>
#include <hidusage.h>
#include <hidclass.h>

// MinGW has no hidport.h. These are its declarations, according to the platform's documentation of
// HID minidrivers.
#define HID_MINIDRIVER_CTL(n) CTL_CODE(FILE_DEVICE_KEYBOARD, n, METHOD_NEITHER, FILE_ANY_ACCESS)
#undef IOCTL_HID_GET_DEVICE_DESCRIPTOR
#undef IOCTL_HID_GET_REPORT_DESCRIPTOR
#undef IOCTL_HID_READ_REPORT
#undef IOCTL_HID_WRITE_REPORT
#undef IOCTL_HID_GET_STRING
#undef IOCTL_HID_GET_DEVICE_ATTRIBUTES
#define IOCTL_HID_GET_DEVICE_DESCRIPTOR HID_MINIDRIVER_CTL(0)
#define IOCTL_HID_GET_REPORT_DESCRIPTOR HID_MINIDRIVER_CTL(1)
#define IOCTL_HID_READ_REPORT HID_MINIDRIVER_CTL(2)
#define IOCTL_HID_WRITE_REPORT HID_MINIDRIVER_CTL(3)
#define IOCTL_HID_GET_STRING HID_MINIDRIVER_CTL(4)
#define IOCTL_HID_ACTIVATE_DEVICE HID_MINIDRIVER_CTL(7)
#define IOCTL_HID_DEACTIVATE_DEVICE HID_MINIDRIVER_CTL(8)
#define IOCTL_HID_GET_DEVICE_ATTRIBUTES HID_MINIDRIVER_CTL(9)

#define HID_HID_DESCRIPTOR_TYPE 0x21
#define HID_REPORT_DESCRIPTOR_TYPE 0x22

typedef struct _HID_MINIDRIVER_REGISTRATION {
    ULONG Revision;
    PDRIVER_OBJECT DriverObject;
    PUNICODE_STRING RegistryPath;
    ULONG DeviceExtensionSize;
    BOOLEAN DevicesArePolled;
    UCHAR Reserved[3];
} HID_MINIDRIVER_REGISTRATION;

typedef struct _HID_DEVICE_EXTENSION {
    PDEVICE_OBJECT PhysicalDeviceObject;
    PDEVICE_OBJECT NextDeviceObject;
    PVOID MiniDeviceExtension;
} HID_DEVICE_EXTENSION;

typedef struct _HID_DEVICE_ATTRIBUTES {
    ULONG Size;
    USHORT VendorID;
    USHORT ProductID;
    USHORT VersionNumber;
    USHORT Reserved[11];
} HID_DEVICE_ATTRIBUTES;

#pragma pack(push, 1)
typedef struct _HID_DESCRIPTOR {
    UCHAR bLength;
    UCHAR bDescriptorType;
    USHORT bcdHID;
    UCHAR bCountry;
    UCHAR bNumDescriptors;
    struct {
        UCHAR bReportType;
        USHORT wReportLength;
    } DescriptorList[1];
} HID_DESCRIPTOR;
#pragma pack(pop)

NTSTATUS NTAPI HidRegisterMinidriver(HID_MINIDRIVER_REGISTRATION* registration);

#else

#include <hidport.h>

#endif

// The string ids of IOCTL_HID_GET_STRING on Windows. Wine's class driver uses those of MinGW's
// HID_STRING_TYPE.
#define WINDOWS_STRING_ID_MANUFACTURER 14
#define WINDOWS_STRING_ID_PRODUCT 15
#define WINDOWS_STRING_ID_SERIAL_NUMBER 16
#define WINE_STRING_ID_MANUFACTURER 1
#define WINE_STRING_ID_PRODUCT 2
#define WINE_STRING_ID_SERIAL_NUMBER 3

#define POOL_TAG 0x44494856  // "VHID"
