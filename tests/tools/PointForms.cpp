#include "tests/tools/PointForms.h"

namespace PointForms {

const QString ownWording = QStringLiteral("*");

namespace {

Form inspectionReport()
{
    Form form{"kelir", QString(), "9", "#ffffff", "-17", "1.5", "1.2", {}};
    form.pages.append({"Inspection Report Page 1.svg",
                       {"PV System Inspection Report",
                        "#initial_verification",
                        "#periodic_verification",
                        "INSTALLATION ADDRESS",
                        "CIRCUITS INSPECTED",
                        "REFERENCE",
                        "DATE",
                        "INSPECTOR",
                        "GENERAL",
                        ownWording,
                        "PV ARRAY DESIGN AND INSTALLATION",
                        "#iec_60364-7-712",
                        "#rated_dc_op",
                        "#iec_60364-7-712_433_a",
                        "#iec_60364-7-712_413_2",
                        "#iec_60364-7-712_522_8_1",
                        "#iec_60364-7-712_522_8_3",
                        "#mod_rev_ir",
                        "#iec_60364-7-712_433_b",
                        "#iec_60364-7-712_433_2",
                        "#iec_60364-7-712.536_2_2_5",
                        "#iec_60364-712-512_1_1",
                        "#iec_60364-712-312_2",
                        "Page 1 of 2"},
                       {"installation_address", "circuits_inspected", "report_ref_id", "inspection_date",
                        "inspector_name"}});
    form.pages.append({"Inspection Report Page 2.svg",
                       {"PV System Inspection Report",
                        "PV SYSTEM - PROTECTION AGAINST OVERVOLTAGE / ELECTRIC SHOCK",
                        "#iec_60364-7-712_413_1_1_1_2",
                        "#iec_60364-7-712_444_4",
                        "#equipot_bonding",
                        "#equipot_bonding_cond",
                        "PV SYSTEM - AC CIRCUIT SPECIAL CONSIDERATIONS",
                        "#isolator_inv",
                        "#iec_60364-7-712_536_2_2_1",
                        "#inv_protection",
                        "PV SYSTEM - LABELLING AND IDENTIFICATION",
                        "#all_labelled",
                        "#junc_boxes_labelled",
                        "#ac_isolator_labelled",
                        "#dual_supply_labelled",
                        "#wiring_diagram",
                        "#invertor_label",
                        "#emergency_shutdown",
                        "#labels_durable",
                        "PV SYSTEM - GENERAL INSTALLATION (MECHANICAL)",
                        "#ventilation",
                        "#corrosion_proof",
                        "#frame_stable",
                        "#cable_waterproof",
                        "Page 2"},
                       {}});
    return form;
}

Form verificationCertificate()
{
    Form form{"kelvc", "Microsoft Sans Serif", "8.5", QString(), "-17", "1.5", "1.2", {}};
    form.pages.append(
        {"Verification Certificate.svg",
         {"PV System Verification Certificate",
          "#initial",
          "#periodic",
          "CLIENT",
          "INSTALLATION ADDRESS",
          "TEST DATE",
          "CONTRACTORS NAME AND ADDRESS",
          "DESCRIPTION OF INSTALLATION",
          "RATED POWER - kW DC",
          "LOCATION",
          "CIRCUITS TESTED",
          "DESIGN, CONSTRUCTION, INSPECTION AND TESTING",
          "SIGNATURE(S)",
          "NEXT INSPECTION RECOMMENDED AFTER NOT MORE THAN",
          "COMMENTS",
          "NAME(S)",
          "DATE",
          "IEC 60364-6 inspection report reference:",
          "PV array inspection report reference:",
          "IEC 60364-6 test report reference:",
          "PV array test report reference:",
          ownWording},
         {"client", "installation_address", "test_date", "contractor", "installation_description",
          "rated_power", "location", "circuits_tested", "iec_inspection_ref", "pv_array_inspection_ref",
          "iec_test_ref", "pv_array_test_ref", "design_construction_testing_inspection", "next_inspection",
          "comments", "signature_names", "signature_date"}});
    return form;
}

Form checklist()
{
    Form form{"kelchk", "Microsoft Sans Serif", "8.5", QString(), "-15", "2", QString(), {}};
    form.pages.append({"Checklist.svg",
                       {"Client Handover Pack Checklist",
                        "The handover pack should include as a minimum the following information:",
                        "SYSTEM DATA",
                        "#basic_system_info",
                        "#installation_diagram",
                        "#pv_modules_manual",
                        "#pv_modules_data_sheet",
                        "#inverter_manual",
                        "#inverter_data-sheet",
                        "#other_manuals",
                        "TEST RESULTS AND COMMISSIONING DATA",
                        "#g38_form",
                        "#installation_cert",
                        "#inspection_report",
                        "#pv_array_test_report",
                        "#verification_cert",
                        "#inverter_settings",
                        "OPERATION AND MAINTENANCE DATA",
                        "#procedures",
                        "#failure_checklist",
                        "#shurdown_procedures",
                        "#maintenance_recommendations",
                        "#future_building",
                        "WARRANTY",
                        "#warranty_info"},
                       {}});
    return form;
}

} // namespace

const QVector<Form> &forms()
{
    static const QVector<Form> all = {inspectionReport(), verificationCertificate(), checklist()};
    return all;
}

} // namespace PointForms
