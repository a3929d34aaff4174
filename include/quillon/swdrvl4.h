/*
 * Client of the QoS service of the driver process: class-of-service mapping, rate limits, scheduling, port isolation
 * and security, DSCP tables, sFlow and the DoS protection filters.
 *
 * Every request function asks the driver process, waits for its answer without a time-out and returns its verdict.
 * Unless a function says otherwise:
 *
 * - It returns 1 when the driver process did what was asked and 0 when it refused.
 * - When the exchange fails (no driver process, or it died), the function prints a failure report on standard output,
 *   runs "cat /proc/<task>/ustack" to dump the calling task's stack and returns 0.
 * - Arguments are not tested here: they go to the driver process as they are, and their meaning and range are its own.
 *   A neutral name (`mode`, `value`, `mapping`) stands where only the driver process knows the meaning. Pointers are
 *   not tested for null.
 * - Any thread may call it once DEV_SWDRVL4_PMGR_InitiateProcessResource has run.
 *
 * `unit` is the number of a unit in the stack, `port` the number of a port on that unit. `first_ports` and
 * `second_ports` point to port lists of 8 bytes each.
 */
#ifndef QUILLON_SWDRVL4_H
#define QUILLON_SWDRVL4_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/*
 * Attaches the process to the driver process's queue of key 24. To be called once, before the family's first request
 * and before the process's threads make requests. Calling it again attaches again.
 *
 * Returns nothing and prints nothing when the queue is missing: the first request then fails, with its failure report.
 */
void DEV_SWDRVL4_PMGR_InitiateProcessResource(void);

/* ---- Class-of-service mapping ---- */

/*
 * Enables a class-of-service mapping of the whole switch. `mapping` names which.
 */
uint8_t DEV_SWDRVL4_PMGR_EnableCosMapping(uint32_t mapping);

/*
 * Enables a class-of-service mapping of a port. `mapping` names which.
 */
uint8_t DEV_SWDRVL4_PMGR_EnablePortCosMapping(uint32_t unit, uint32_t port, uint32_t mapping);

/*
 * Disables a class-of-service mapping of the whole switch. `mapping` names which.
 */
uint8_t DEV_SWDRVL4_PMGR_DisableCosMapping(uint32_t mapping);

/*
 * Disables a class-of-service mapping of a port. `mapping` names which.
 */
uint8_t DEV_SWDRVL4_PMGR_DisablePortCosMapping(uint32_t unit, uint32_t port, uint32_t mapping);

/*
 * Maps `value` to `priority` in the mapping `mapping` of the whole switch.
 */
uint8_t DEV_SWDRVL4_PMGR_SetCosMapping(uint32_t mapping, uint32_t value, uint32_t priority);

/*
 * Maps `value` to `priority` in the mapping `mapping` of a port.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPortCosMapping(uint32_t unit, uint32_t port, uint32_t mapping, uint32_t value,
                                           uint32_t priority);

/*
 * Deletes what maps `value` to `priority` from the mapping `mapping` of the whole switch.
 */
uint8_t DEV_SWDRVL4_PMGR_DeleteCosMapping(uint32_t mapping, uint32_t value, uint32_t priority);

/*
 * Deletes what maps `value` to `priority` from the mapping `mapping` of a port.
 */
uint8_t DEV_SWDRVL4_PMGR_DeletePortCosMapping(uint32_t unit, uint32_t port, uint32_t mapping, uint32_t value,
                                              uint32_t priority);

/* ---- Rate limits ---- */

/*
 * Enables the rate limit of what a port receives.
 */
uint8_t DEV_SWDRVL4_PMGR_EnablePortIngressRateLimit(uint32_t unit, uint32_t port);

/*
 * Disables the rate limit of what a port receives.
 */
uint8_t DEV_SWDRVL4_PMGR_DisablePortIngressRateLimit(uint32_t unit, uint32_t port);

/*
 * Sets the rate limit of what a port receives. The unit of `rate` is the driver process's.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPortIngressRateLimit(uint32_t unit, uint32_t port, uint32_t rate);

/*
 * Enables the rate limit of what a port sends.
 */
uint8_t DEV_SWDRVL4_PMGR_EnablePortEgressRateLimit(uint32_t unit, uint32_t port);

/*
 * Disables the rate limit of what a port sends.
 */
uint8_t DEV_SWDRVL4_PMGR_DisablePortEgressRateLimit(uint32_t unit, uint32_t port);

/*
 * Sets the rate limit of what a port sends. The unit of `rate` is the driver process's.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPortEgressRateLimit(uint32_t unit, uint32_t port, uint32_t rate);

/* ---- Egress scheduling and queue weights ---- */

/*
 * Sets how the egress queues of the whole switch are scheduled.
 */
uint8_t DEV_SWDRVL4_PMGR_SetEgressSchedulingMethod(uint32_t method);

/*
 * Sets how the egress queues of a port are scheduled.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPortEgressSchedulingMethod(uint32_t unit, uint32_t port, uint32_t method);

/*
 * Sets which egress queues of a port are served by strict priority. `queue` and `mode` are passed to the driver process
 * as they are.
 */
uint8_t DEV_SWDRVL4_PMGR_SetEgressSpSchedulingQueues(uint32_t unit, uint32_t port, uint32_t queue, uint32_t mode);

/*
 * Sets the weight of an egress queue of the whole switch for weighted round robin.
 */
uint8_t DEV_SWDRVL4_PMGR_SetWrrQueueWeight(uint32_t queue, uint32_t weight);

/*
 * Has an egress queue of the whole switch served by strict priority.
 */
uint8_t DEV_SWDRVL4_PMGR_SetStrictPriorityQueue(uint32_t queue);

/*
 * Sets the weight of an egress queue of a port for weighted round robin.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPortWrrQueueWeight(uint32_t unit, uint32_t port, uint32_t queue, uint32_t weight);

/* ---- Traffic segmentation and private VLANs ---- */

/*
 * Enables traffic segmentation.
 */
uint8_t DEV_SWDRVL4_PMGR_EnableTrafficSegmatation(void);

/*
 * Disables traffic segmentation.
 */
uint8_t DEV_SWDRVL4_PMGR_DisableTrafficSegmatation(void);

/*
 * Puts traffic segmentation back to its defaults.
 */
uint8_t DEV_SWDRVL4_PMGR_ResetTrafficSegmatation(void);

/*
 * Sets the two port lists of traffic segmentation.
 */
uint8_t DEV_SWDRVL4_PMGR_SetTrafficSegmatationByPortlist(const uint8_t *first_ports, const uint8_t *second_ports);

/*
 * Sets the two port lists of the private VLAN session `session`.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPrivateVlanPortlistBySessionId(uint32_t session, const uint8_t *first_ports,
                                                           const uint8_t *second_ports);

/*
 * Deletes the ports of the two lists from the private VLAN session `session`.
 */
uint8_t DEV_SWDRVL4_PMGR_DeletePrivateVlanPortlistBySessionId(uint32_t session, const uint8_t *first_ports,
                                                              const uint8_t *second_ports);

/*
 * Sets the mode of the private VLANs' uplink ports.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPrivateVlanUplinkPortMode(uint8_t mode);

/*
 * Sets the private VLAN trunk mode of a port.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPrivateVlanTrunkMode(uint32_t unit, uint32_t port, uint8_t mode);

/* ---- Port security ---- */

/*
 * Enables the security of a port.
 */
uint8_t DEV_SWDRVL4_PMGR_EnablePortSecurity(uint32_t unit, uint32_t port);

/*
 * Disables the security of a port.
 */
uint8_t DEV_SWDRVL4_PMGR_DisablePortSecurity(uint32_t unit, uint32_t port);

/*
 * Sets the security mode of a port.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPortSecurityMode(uint32_t unit, uint32_t port, uint32_t mode);

/* ---- Mapping tables of CoS, precedence and DSCP ----
 *
 * `cos`, `precedence` and `dscp` are the values of the packets' fields. `cos_extra` and `dscp_extra` go with the value
 * in front of them.
 */

/*
 * Sets which of a packet's priority fields a port trusts.
 */
uint8_t DEV_SWDRVL4_PMGR_SetCosTrustMode(uint32_t unit, uint32_t port, uint32_t mode);

/*
 * Maps the CoS of what a port receives to a DSCP.
 */
uint8_t DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp(uint32_t unit, uint32_t port, uint32_t cos, uint32_t cos_extra,
                                           uint32_t dscp, uint32_t dscp_extra);

/*
 * Maps the IP precedence of what a port receives to a DSCP.
 */
uint8_t DEV_SWDRVL4_PMGR_SetQosIngPre2Dscp(uint32_t unit, uint32_t port, uint32_t precedence, uint32_t dscp,
                                           uint32_t dscp_extra);

/*
 * Maps the DSCP of what a port receives to another, `new_dscp`.
 */
uint8_t DEV_SWDRVL4_PMGR_SetQosIngDscp2Dscp(uint32_t unit, uint32_t port, uint32_t dscp, uint32_t new_dscp,
                                            uint32_t new_dscp_extra);

/*
 * Maps the DSCP of what a port receives to an egress queue.
 */
uint8_t DEV_SWDRVL4_PMGR_SetQosIngDscp2Queue(uint32_t unit, uint32_t port, uint32_t dscp, uint32_t queue);

/*
 * Maps the DSCP of what a port receives to a drop colour.
 */
uint8_t DEV_SWDRVL4_PMGR_SetQosIngDscp2Color(uint32_t unit, uint32_t port, uint32_t dscp, uint32_t color);

/*
 * Maps the DSCP of what a port receives to a CoS. The request carries the CoS in front of the DSCP, as that of
 * DEV_SWDRVL4_PMGR_SetQosIngCos2Dscp does.
 */
uint8_t DEV_SWDRVL4_PMGR_SetQosIngDscp2Cos(uint32_t unit, uint32_t port, uint32_t dscp, uint32_t dscp_extra,
                                           uint32_t cos, uint32_t cos_extra);

/* ---- sFlow sampling and the DoS protection filters ----
 *
 * The three requests of this group print "<function>: return_value=0" on standard output when the driver process
 * refuses. When the exchange fails, their failure report ends with "<function>:SYSFUN_SendRequestMsg fail! (<status>)".
 */

/*
 * Sets the sFlow sampling of a port: `mode` is passed to the driver process as it is.
 */
uint8_t DEV_SWDRVL4_PMGR_EnablePortSflow(uint32_t unit, uint32_t port, uint8_t mode);

/*
 * Sets the sFlow sampling rate of a port.
 */
uint8_t DEV_SWDRVL4_PMGR_SetPortSflowRate(uint32_t unit, uint32_t port, uint32_t rate);

/*
 * Returns 1. Asks the driver process nothing, and works without it.
 */
uint8_t DEV_SWDRVL4_PMGR_GetSflowSampleCount(void);

/*
 * Sets the DoS protection filter `filter`: `mode` is passed to the driver process as it is.
 */
uint8_t DEV_SWDRVL4_PMGR_SetDosProtectionFilter(uint32_t filter, uint8_t mode);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
