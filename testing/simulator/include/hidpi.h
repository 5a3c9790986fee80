// The HID parser's functions and records as the platform declares them. The records have the
// platform's layout byte for byte: the agent keeps whole copies of them.
#pragma once

#include <windows.h>

#include <hidusage.h>

#define HIDP_LINK_COLLECTION_UNSPECIFIED ((USHORT)0)

typedef enum _HIDP_REPORT_TYPE { HidP_Input, HidP_Output, HidP_Feature } HIDP_REPORT_TYPE;

typedef struct _HIDP_PREPARSED_DATA* PHIDP_PREPARSED_DATA;

typedef struct _HIDP_CAPS {
    USAGE Usage;
    USAGE UsagePage;
    USHORT InputReportByteLength;
    USHORT OutputReportByteLength;
    USHORT FeatureReportByteLength;
    USHORT Reserved[17];

    USHORT NumberLinkCollectionNodes;

    USHORT NumberInputButtonCaps;
    USHORT NumberInputValueCaps;
    USHORT NumberInputDataIndices;

    USHORT NumberOutputButtonCaps;
    USHORT NumberOutputValueCaps;
    USHORT NumberOutputDataIndices;

    USHORT NumberFeatureButtonCaps;
    USHORT NumberFeatureValueCaps;
    USHORT NumberFeatureDataIndices;
} HIDP_CAPS, *PHIDP_CAPS;

typedef struct _HIDP_BUTTON_CAPS {
    USAGE UsagePage;
    UCHAR ReportID;
    BOOLEAN IsAlias;

    USHORT BitField;
    USHORT LinkCollection;
    USAGE LinkUsage;
    USAGE LinkUsagePage;

    BOOLEAN IsRange;
    BOOLEAN IsStringRange;
    BOOLEAN IsDesignatorRange;
    BOOLEAN IsAbsolute;

    ULONG Reserved[10];

    union {
        struct {
            USAGE UsageMin, UsageMax;
            USHORT StringMin, StringMax;
            USHORT DesignatorMin, DesignatorMax;
            USHORT DataIndexMin, DataIndexMax;
        } Range;
        struct {
            USAGE Usage, Reserved1;
            USHORT StringIndex, Reserved2;
            USHORT DesignatorIndex, Reserved3;
            USHORT DataIndex, Reserved4;
        } NotRange;
    };
} HIDP_BUTTON_CAPS, *PHIDP_BUTTON_CAPS;

typedef struct _HIDP_VALUE_CAPS {
    USAGE UsagePage;
    UCHAR ReportID;
    BOOLEAN IsAlias;

    USHORT BitField;
    USHORT LinkCollection;
    USAGE LinkUsage;
    USAGE LinkUsagePage;

    BOOLEAN IsRange;
    BOOLEAN IsStringRange;
    BOOLEAN IsDesignatorRange;
    BOOLEAN IsAbsolute;

    BOOLEAN HasNull;
    UCHAR Reserved;
    USHORT BitSize;
    USHORT ReportCount;
    USHORT Reserved2[5];

    ULONG UnitsExp;
    ULONG Units;
    LONG LogicalMin, LogicalMax;
    LONG PhysicalMin, PhysicalMax;

    union {
        struct {
            USAGE UsageMin, UsageMax;
            USHORT StringMin, StringMax;
            USHORT DesignatorMin, DesignatorMax;
            USHORT DataIndexMin, DataIndexMax;
        } Range;
        struct {
            USAGE Usage, Reserved1;
            USHORT StringIndex, Reserved2;
            USHORT DesignatorIndex, Reserved3;
            USHORT DataIndex, Reserved4;
        } NotRange;
    };
} HIDP_VALUE_CAPS, *PHIDP_VALUE_CAPS;

typedef struct _HIDP_LINK_COLLECTION_NODE {
    USAGE LinkUsage;
    USAGE LinkUsagePage;
    USHORT Parent;
    USHORT NumberOfChildren;
    USHORT NextSibling;
    USHORT FirstChild;
    ULONG CollectionType : 8;
    ULONG IsAlias : 1;
    ULONG Reserved : 23;
    PVOID UserContext;
} HIDP_LINK_COLLECTION_NODE, *PHIDP_LINK_COLLECTION_NODE;

// The severity is the top digit, the facility 0x11. Success is not 0: callers test for a negative
// status.
#define HIDP_STATUS_SUCCESS ((NTSTATUS)0x00110000)
#define HIDP_STATUS_NULL ((NTSTATUS)0x80110001)
#define HIDP_STATUS_INVALID_PREPARSED_DATA ((NTSTATUS)0xC0110001)
#define HIDP_STATUS_INVALID_REPORT_TYPE ((NTSTATUS)0xC0110002)
#define HIDP_STATUS_INVALID_REPORT_LENGTH ((NTSTATUS)0xC0110003)
#define HIDP_STATUS_USAGE_NOT_FOUND ((NTSTATUS)0xC0110004)
#define HIDP_STATUS_VALUE_OUT_OF_RANGE ((NTSTATUS)0xC0110005)
#define HIDP_STATUS_BAD_LOG_PHY_VALUES ((NTSTATUS)0xC0110006)
#define HIDP_STATUS_BUFFER_TOO_SMALL ((NTSTATUS)0xC0110007)
#define HIDP_STATUS_INTERNAL_ERROR ((NTSTATUS)0xC0110008)
#define HIDP_STATUS_I8042_TRANS_UNKNOWN ((NTSTATUS)0xC0110009)
#define HIDP_STATUS_INCOMPATIBLE_REPORT_ID ((NTSTATUS)0xC011000A)
#define HIDP_STATUS_NOT_VALUE_ARRAY ((NTSTATUS)0xC011000B)
#define HIDP_STATUS_IS_VALUE_ARRAY ((NTSTATUS)0xC011000C)
#define HIDP_STATUS_DATA_INDEX_NOT_FOUND ((NTSTATUS)0xC011000D)
#define HIDP_STATUS_DATA_INDEX_OUT_OF_RANGE ((NTSTATUS)0xC011000E)
#define HIDP_STATUS_BUTTON_NOT_PRESSED ((NTSTATUS)0xC011000F)
#define HIDP_STATUS_REPORT_DOES_NOT_EXIST ((NTSTATUS)0xC0110010)
#define HIDP_STATUS_NOT_IMPLEMENTED ((NTSTATUS)0xC0110020)

extern "C" {

NTSTATUS NTAPI HidP_GetCaps(PHIDP_PREPARSED_DATA PreparsedData, PHIDP_CAPS Capabilities);

NTSTATUS NTAPI HidP_GetLinkCollectionNodes(PHIDP_LINK_COLLECTION_NODE LinkCollectionNodes,
                                           PULONG LinkCollectionNodesLength,
                                           PHIDP_PREPARSED_DATA PreparsedData);

NTSTATUS NTAPI HidP_GetValueCaps(HIDP_REPORT_TYPE ReportType, PHIDP_VALUE_CAPS ValueCaps,
                                 PUSHORT ValueCapsLength, PHIDP_PREPARSED_DATA PreparsedData);

NTSTATUS NTAPI HidP_GetButtonCaps(HIDP_REPORT_TYPE ReportType, PHIDP_BUTTON_CAPS ButtonCaps,
                                  PUSHORT ButtonCapsLength, PHIDP_PREPARSED_DATA PreparsedData);

ULONG NTAPI HidP_MaxUsageListLength(HIDP_REPORT_TYPE ReportType, USAGE UsagePage,
                                    PHIDP_PREPARSED_DATA PreparsedData);

NTSTATUS NTAPI HidP_GetUsages(HIDP_REPORT_TYPE ReportType, USAGE UsagePage, USHORT LinkCollection,
                              PUSAGE UsageList, PULONG UsageLength,
                              PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report, ULONG ReportLength);

NTSTATUS NTAPI HidP_SetUsages(HIDP_REPORT_TYPE ReportType, USAGE UsagePage, USHORT LinkCollection,
                              PUSAGE UsageList, PULONG UsageLength,
                              PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report, ULONG ReportLength);

NTSTATUS NTAPI HidP_UnsetUsages(HIDP_REPORT_TYPE ReportType, USAGE UsagePage, USHORT LinkCollection,
                                PUSAGE UsageList, PULONG UsageLength,
                                PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report,
                                ULONG ReportLength);

NTSTATUS NTAPI HidP_GetUsageValue(HIDP_REPORT_TYPE ReportType, USAGE UsagePage,
                                  USHORT LinkCollection, USAGE Usage, PULONG UsageValue,
                                  PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report,
                                  ULONG ReportLength);

NTSTATUS NTAPI HidP_SetUsageValue(HIDP_REPORT_TYPE ReportType, USAGE UsagePage,
                                  USHORT LinkCollection, USAGE Usage, ULONG UsageValue,
                                  PHIDP_PREPARSED_DATA PreparsedData, PCHAR Report,
                                  ULONG ReportLength);

}  // extern "C"
