#pragma once

// Draws the response scene into the OpenGL context that is current: a grey corner of three walls and a
// floor, the early reflections as a red slab, the late reverberation as a blue wedge, and two
// translucent reference planes. OpenGL 1.1 immediate mode with one light; each drawing builds the
// meshes anew from the record. The switches and the view's rotation are module-level: they outlive
// the window that sets them.

#include "reverbview/ReverbResponseModel.h"

#include <functional>

// Sets the context's fixed state and allocates the scene for `rows` frequency rows. Returns 1.
int InitResponseScene(int rows);
// One whole drawing into the viewport, in device pixels. The caller presents the frame.
void RenderResponse(int left, int top, int width, int height, const ReverbResponseParams& params);
// Frees the scene; the context itself belongs to the caller.
void ReleaseResponseScene();

void SetRenderRearPanel(int flag);
void SetRenderEarly(int flag);
void SetRenderLate(int flag);
void SetRenderHFPlane(int flag);
void SetRenderLFPlane(int flag);
void SetWireRearPanel(int flag);
void SetWireEarly(int flag);
void SetWireLate(int flag);

void SetViewRotationX(float degrees);
void SetViewRotationY(float degrees);
float GetViewRotationX();
float GetViewRotationY();

// The camera and the placing of the scene in it.
inline constexpr float ViewDistance = 3.0f;
inline constexpr float ViewScale[3] = {1.0f, 1.0f, 1.0f};
inline constexpr float ViewRotationZ = 0.0f;
inline constexpr float ViewOffset[3] = {-0.9f, 0.0f, 0.0f}; // centres the 2-unit time axis

// The four ways a face is drawn: a polygon of four, five or three points with its normal worked out
// from the first three ((p1 - p0) x (p2 - p0), of length 1), and one of four points with a given normal.
void DrawQuadAutoNormal(const ResponsePoint& a, const ResponsePoint& b, const ResponsePoint& c, const ResponsePoint& d);
void DrawPentagonAutoNormal(const ResponsePoint& a, const ResponsePoint& b, const ResponsePoint& c,
                            const ResponsePoint& d, const ResponsePoint& e);
void DrawTriangleAutoNormal(const ResponsePoint& a, const ResponsePoint& b, const ResponsePoint& c);
void DrawQuadNormal(const ResponsePoint& a, const ResponsePoint& b, const ResponsePoint& c, const ResponsePoint& d,
                    double nx, double ny, double nz);

// Every face that the drawing sends, for those who must know the geometry and not only the pixels.
enum class ResponseObject { RearPanel, Early, Late, LFPlane, HFPlane };
struct ResponseFace {
    ResponseObject object;
    int corners;                // 3, 4 or 5
    ResponsePoint points[5];
    double normal[3];
};
// Called for each face as it is drawn; an empty function stops the recording.
void SetResponseFaceRecorder(std::function<void(const ResponseFace&)> recorder);
